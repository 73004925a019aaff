#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrin::exporter {

/// Something that was asked for and is not there, or not whole.
struct Failure {
  std::string path;  ///< of the job, or of a folder
  bool isFolder = false;
  /// Names of the kinds concerned: one, or all that were asked for; none when it is not about
  /// sets.
  std::vector<std::string_view> kinds;
  /// As the window says it.
  std::string text;
};

}  // namespace kestrin::exporter
