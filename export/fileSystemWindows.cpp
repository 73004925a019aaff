#ifdef _WIN32

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "export/fileSystem.h"
#include "export/temporaryName.h"

namespace kestrin {
namespace {

/// The most one call is asked to write.
constexpr std::size_t kLargestWrite = std::size_t{1} << 20;

[[noreturn]] void Fail(const std::string& path, DWORD code) {
  throw FileError(path, std::system_category().message(static_cast<int>(code)));
}

[[noreturn]] void Fail(const std::string& path) { Fail(path, GetLastError()); }

std::wstring Wide(const std::string& path) {
  const int size = static_cast<int>(path.size());
  if (size == 0) return {};
  const int length =
      MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), size, nullptr, 0);
  if (length == 0) Fail(path);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), size, wide.data(), length);
  return wide;
}

bool MeansAbsent(DWORD code) {
  return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
}

class WindowsFile : public OutputFile {
 public:
  WindowsFile(std::string path, HANDLE handle) : path_(std::move(path)), handle_(handle) {}
  ~WindowsFile() override {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
  }

  void WriteAt(std::uint64_t offset, std::string_view bytes) override {
    while (!bytes.empty()) {
      OVERLAPPED place{};
      place.Offset = static_cast<DWORD>(offset);
      place.OffsetHigh = static_cast<DWORD>(offset >> 32);
      const auto size = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
      DWORD count = 0;
      if (!WriteFile(handle_, bytes.data(), size, &count, &place)) Fail(path_);
      if (count == 0) Fail(path_, ERROR_DISK_FULL);
      offset += count;
      bytes.remove_prefix(count);
    }
  }

  void Sync() override {
    if (!FlushFileBuffers(handle_)) Fail(path_);
  }

  void Close() override {
    if (!CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE))) Fail(path_);
  }

 private:
  std::string path_;
  HANDLE handle_;
};

class WindowsFileSystem : public FileSystem {
 public:
  std::unique_ptr<OutputFile> Create(const std::string& path) override {
    const HANDLE handle = CreateFileW(Wide(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) Fail(path);
    return std::make_unique<WindowsFile>(path, handle);
  }

  void Rename(const std::string& from, const std::string& to) override {
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (!MoveFileExW(Wide(from).c_str(), Wide(to).c_str(), kFlags)) Fail(to);
  }

  void Remove(const std::string& path) override {
    if (!DeleteFileW(Wide(path).c_str()) && !MeansAbsent(GetLastError())) Fail(path);
  }

  void SyncFolderOf(const std::string&) override {
    // Every name was moved into place with write-through.
  }

  bool Exists(const std::string& path) override {
    if (GetFileAttributesW(Wide(path).c_str()) != INVALID_FILE_ATTRIBUTES) return true;
    const DWORD code = GetLastError();
    if (!MeansAbsent(code) && code != ERROR_INVALID_NAME) Fail(path, code);
    return false;
  }

  void MakeFolder(const std::string& path) override {
    const std::wstring wide = Wide(path);
    if (CreateDirectoryW(wide.c_str(), nullptr)) return;
    const DWORD code = GetLastError();
    // A drive as well is refused as a new folder, with another code than a folder.
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    const bool isFolder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!isFolder) Fail(path, code);
  }

  void Copy(const std::string& from, const std::string& to) override {
    const std::string temporary = TemporaryNameBeside(to);
    const std::wstring wide = Wide(temporary);
    try {
      CopyNew(from, wide);
      // Without MOVEFILE_REPLACE_EXISTING an existing file stays and the move fails.
      if (!MoveFileExW(wide.c_str(), Wide(to).c_str(), MOVEFILE_WRITE_THROUGH)) Fail(to);
    } catch (...) {
      DeleteFileW(wide.c_str());
      throw;
    }
  }

 private:
  /// Copies to a new file and brings it to the medium.
  static void CopyNew(const std::string& from, const std::wstring& to) {
    if (!CopyFileW(Wide(from).c_str(), to.c_str(), TRUE)) Fail(from);
    // A copy takes over the attributes: what is read-only could not be flushed.
    SetFileAttributesW(to.c_str(), FILE_ATTRIBUTE_NORMAL);
    const HANDLE handle = CreateFileW(to.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) Fail(from);
    WindowsFile file(from, handle);
    file.Sync();
    file.Close();
  }
};

}  // namespace

std::unique_ptr<FileSystem> NativeFileSystem() { return std::make_unique<WindowsFileSystem>(); }

}  // namespace kestrin

#endif
