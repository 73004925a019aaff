#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/fileSystem.h"
#include "base/utf8Path.h"
#include "tools/exporter/folderListing.h"

namespace kestrin::exporter {
namespace fs = std::filesystem;

bool IsFolder(const std::string& path) {
  std::error_code error;
  return fs::is_directory(base::PathOf(path), error);
}

FolderListing ListFolder(const std::string& path) {
  std::error_code error;
  FolderListing listing;
  listing.identity = base::Utf8Of(fs::canonical(base::PathOf(path), error));
  if (error) throw base::FileError(path, error.message());
  for (fs::directory_iterator entry(base::PathOf(path), error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code dangling;
    const bool isFolder = entry->is_directory(dangling);
    auto& names = isFolder ? listing.folders : listing.files;
    names.push_back(base::Utf8Of(entry->path().filename()));
  }
  if (error) throw base::FileError(path, error.message());
  std::ranges::sort(listing.files);
  std::ranges::sort(listing.folders);
  return listing;
}

}  // namespace kestrin::exporter
