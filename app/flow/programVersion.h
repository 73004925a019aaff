#pragma once

#include <string>

namespace kestrin::flow {

/// The program's own version.
struct ProgramVersion {
  int major = 0;
  int minor = 0;
  int revision = 0;
};

/// "1.0.0"
std::string VersionText(const ProgramVersion& version);

/// The version label: "Kestrin Version  1.0.0".
std::string VersionCaption(const ProgramVersion& version);

}  // namespace kestrin::flow
