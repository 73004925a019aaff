#include "app/flow/warnings.h"

namespace kestrin::flow {
namespace {

constexpr const char* kLineBreak = "\r\n";
constexpr const char* kWebSite = "www.kestrin.example";

}  // namespace

std::string UnknownFormatWarning(const std::string& jobVersion) {
  return "Job file Format " + jobVersion + " may be incompatible " + kLineBreak +
         "with Kestrin and might not display properly.";
}

std::string NewerJobWarning(const ProgramVersion& program, const std::string& jobVersion) {
  return VersionCaption(program) + " may be incompatible with Job File Format " + jobVersion +
         kLineBreak + "and might not display properly." + kLineBreak + kLineBreak + "Visit " +
         kWebSite + " to download the latest version of Kestrin.";
}

}  // namespace kestrin::flow
