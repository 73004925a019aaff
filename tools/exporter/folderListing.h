#pragma once

#include <string>
#include <vector>

namespace kestrin::exporter {

/// What lies directly in a folder: names in the order of their bytes. Links count as what
/// they lead to; whatever is no folder counts as a file.
struct FolderListing {
  std::vector<std::string> files;
  std::vector<std::string> folders;
  /// The same under every path that leads to this folder, and to no other.
  std::string identity;
};

/// Whether a path (UTF-8) leads to a folder.
bool IsFolder(const std::string& path);

/// Failure: throws base::FileError where the folder cannot be read.
FolderListing ListFolder(const std::string& path);

}  // namespace kestrin::exporter
