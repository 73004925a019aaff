#include "app/flow/warnings.h"

namespace kestrin::flow {
namespace {

constexpr const char* kNewLine = "\r\n";
constexpr const char* kWebSite = "www.kestrin.example";

}  // namespace

std::string UnknownFormatWarning(const std::string& jobVersion) {
  return "Job file Format " + jobVersion + " may be incompatible " + kNewLine +
         "with Kestrin and might not display properly.";
}

std::string NewerJobWarning(const ProgramVersion& program, const std::string& jobVersion) {
  return VersionCaption(program) + " may be incompatible with Job File Format " + jobVersion +
         kNewLine + "and might not display properly." + kNewLine + kNewLine + "Visit " + kWebSite +
         " to download the latest version of Kestrin.";
}

}  // namespace kestrin::flow
