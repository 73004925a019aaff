#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/fileSystem.h"

/// Paths as texts (UTF-8): pure functions of the platform's separator ('\\' on Windows,
/// '/' elsewhere).

namespace kestrin::base {

inline constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// A path cut behind its last separator; the folder is empty when there is none.
struct SplitPath {
  std::string folder;  ///< ends in the separator
  std::string name;
};
SplitPath SplitAtLastSeparator(std::string_view path, char separator = kSeparator);

/// The path, ending in a separator.
std::string WithSeparator(std::string path, char separator = kSeparator);

/// Creates every missing folder of a path, from the left; one trailing separator is
/// ignored, and so are the server and share of a network path. Throws FileError.
void MakePath(FileSystem& files, std::string_view path, char separator = kSeparator);

}  // namespace kestrin::base
