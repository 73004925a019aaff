#include <windows.h>

#include <algorithm>
#include <memory>

#include "base/fileSystem.h"
#include "base/nativePath.h"
#include "base/paths.h"
#include "base/systemReason.h"
#include "tools/exporter/folderListing.h"

namespace kestrin::exporter {
namespace {

std::wstring Wide(const std::string& path) {
  auto wide = base::NativePath(path);
  if (!wide) throw base::FileError(path, base::ReasonOf(ERROR_INVALID_NAME));
  return *wide;
}

/// A junction can lead back to a folder above it, so a folder is known by its number.
std::string IdentityOf(const std::string& path) {
  const HANDLE handle =
      CreateFileW(Wide(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) throw base::FileError(path, base::ReasonOf(GetLastError()));
  const std::unique_ptr<void, decltype(&CloseHandle)> folder(handle, &CloseHandle);
  BY_HANDLE_FILE_INFORMATION known{};
  if (!GetFileInformationByHandle(handle, &known)) {
    throw base::FileError(path, base::ReasonOf(GetLastError()));
  }
  return std::to_string(known.dwVolumeSerialNumber) + ' ' + std::to_string(known.nFileIndexHigh) +
         ' ' + std::to_string(known.nFileIndexLow);
}

void Add(const WIN32_FIND_DATAW& entry, FolderListing& listing) {
  const std::string name = base::Utf8Text(entry.cFileName);
  if (name == "." || name == "..") return;
  const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  (isFolder ? listing.folders : listing.files).push_back(name);
}

}  // namespace

bool IsFolder(const std::string& path) {
  const auto native = base::NativePath(path);
  if (!native) return false;
  const DWORD attributes = GetFileAttributesW(native->c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

FolderListing ListFolder(const std::string& path) {
  FolderListing listing;
  listing.identity = IdentityOf(path);
  WIN32_FIND_DATAW entry{};
  const HANDLE handle = FindFirstFileW(Wide(base::WithSeparator(path) + '*').c_str(), &entry);
  DWORD code = GetLastError();
  if (handle != INVALID_HANDLE_VALUE) {
    const std::unique_ptr<void, decltype(&FindClose)> search(handle, &FindClose);
    do Add(entry, listing);
    while (FindNextFileW(handle, &entry));
    code = GetLastError();
  }
  // An empty root has not even itself in it.
  if (code != ERROR_NO_MORE_FILES && code != ERROR_FILE_NOT_FOUND) {
    throw base::FileError(path, base::ReasonOf(code));
  }
  std::ranges::sort(listing.files);
  std::ranges::sort(listing.folders);
  return listing;
}

}  // namespace kestrin::exporter
