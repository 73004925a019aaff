#include "app/flow/programVersion.h"

namespace kestrin::flow {

std::string VersionText(const ProgramVersion& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
         std::to_string(version.revision);
}

std::string VersionCaption(const ProgramVersion& version) {
  return "Kestrin Version  " + VersionText(version);
}

}  // namespace kestrin::flow
