#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "base/fileSystem.h"

/// Paths as texts (UTF-8), their folders parted by the system's own separator alone.

namespace kestrin::base {

/// '\\' on Windows, '/' elsewhere.
inline constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

/// A path cut behind its last separator; the folder is empty when there is none.
struct SplitPath {
  std::string folder;  ///< ends in the separator
  std::string name;
};
SplitPath SplitAtLastSeparator(std::string_view path);

/// The path, ending in a separator.
std::string WithSeparator(std::string path);

/// Creates every missing folder of a path, from the left; one trailing separator is
/// ignored, and so are the server and share of a Windows network path.
/// Failure: FileError at the first folder that cannot be made; those before it stay.
void MakePath(FileSystem& files, std::string_view path);

}  // namespace kestrin::base
