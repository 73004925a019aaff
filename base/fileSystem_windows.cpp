#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "base/fileSystem.h"
#include "base/nativePath.h"
#include "base/systemReason.h"
#include "base/temporaryName.h"

namespace kestrin::base {
namespace {

/// The most one call is asked to write.
constexpr std::size_t kLargestWrite = std::size_t{1} << 20;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[noreturn]] void Fail(const std::string& path, DWORD code) {
  throw FileError(path, ReasonOf(code));
}

[[noreturn]] void Fail(const std::string& path) { Fail(path, GetLastError()); }

/// The path as the system takes it.
std::wstring Wide(const std::string& path) {
  if (const auto wide = NativePath(path)) return *wide;
  Fail(path, ERROR_INVALID_NAME);
}

bool MeansAbsent(DWORD code) {
  return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
}

/// Calls until the system no longer says that somebody else has the file, for half a
/// second at most: virus scanners and indexers look into every new file for a moment.
/// Returns the last call's code.
template <class Attempt>
DWORD Patiently(Attempt attempt) {
  constexpr int kTries = 10;
  constexpr DWORD kPause = 50;
  for (int tries = 1;; ++tries) {
    const DWORD code = attempt();
    const bool mayPass = code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED;
    if (!mayPass || tries == kTries) return code;
    Sleep(kPause);
  }
}

DWORD CodeOf(BOOL worked) { return worked ? ERROR_SUCCESS : GetLastError(); }

/// A file held with the right to delete it, if it is there; closed at the end of its
/// scope. What another program has open without leave to delete it is refused.
class Deletable {
 public:
  explicit Deletable(const std::string& path)
      : handle_(CreateFileW(Wide(path).c_str(), DELETE | FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                            OPEN_EXISTING,
                            FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr)),
        code_(CodeOf(handle_ != INVALID_HANDLE_VALUE)) {
    // The mark counts only when the file is to go.
    BY_HANDLE_FILE_INFORMATION file{};
    if (code_ == ERROR_SUCCESS && GetFileInformationByHandle(handle_, &file) &&
        (file.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
      code_ = ERROR_ACCESS_DENIED;
    }
  }
  ~Deletable() {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
  }
  Deletable(const Deletable&) = delete;
  Deletable& operator=(const Deletable&) = delete;

  /// Why it cannot be had; ERROR_SUCCESS when it can.
  DWORD Code() const { return code_; }

 private:
  HANDLE handle_;
  DWORD code_;
};

/// A file that is in use is refused as a move's target in words that do not say so.
[[noreturn]] void FailAsTarget(const std::string& path, DWORD code) {
  const bool inUse = Deletable(path).Code() == ERROR_SHARING_VIOLATION;
  Fail(path, inUse ? ERROR_SHARING_VIOLATION : code);
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
    const std::wstring source = Wide(from), target = Wide(to);
    const DWORD code =
        Patiently([&] { return CodeOf(MoveFileExW(source.c_str(), target.c_str(), kFlags)); });
    if (code != ERROR_SUCCESS) FailAsTarget(to, code);
  }

  void Remove(const std::string& path) override {
    const std::wstring wide = Wide(path);
    const DWORD code = Patiently([&] { return CodeOf(DeleteFileW(wide.c_str())); });
    if (code != ERROR_SUCCESS && !MeansAbsent(code)) Fail(path, code);
  }

  void RemoveAll(std::span<const std::string> paths) override {
    // Held until all are marked: a program that asks for one meanwhile is late.
    std::vector<std::unique_ptr<Deletable>> held;
    for (const std::string& path : paths) {
      held.emplace_back();
      const DWORD code = Patiently([&] {
        held.back() = std::make_unique<Deletable>(path);
        return held.back()->Code();
      });
      if (code != ERROR_SUCCESS && !MeansAbsent(code)) Fail(path, code);
    }
    for (const std::string& path : paths) Remove(path);
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
      const std::wstring target = Wide(to);
      const DWORD code = Patiently([&] {
        return CodeOf(MoveFileExW(wide.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH));
      });
      if (code != ERROR_SUCCESS) Fail(to, code);
    } catch (...) {
      Patiently([&] { return CodeOf(DeleteFileW(wide.c_str())); });
      throw;
    }
  }

 private:
  /// Copies to a new file and brings it to the medium.
  static void CopyNew(const std::string& from, const std::wstring& to) {
    if (!CopyFileW(Wide(from).c_str(), to.c_str(), TRUE)) Fail(from);
    // A copy takes over the attributes: what is read-only could not be flushed.
    SetFileAttributesW(to.c_str(), FILE_ATTRIBUTE_NORMAL);
    HANDLE handle = INVALID_HANDLE_VALUE;
    const DWORD code = Patiently([&] {
      handle = CreateFileW(to.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
      return CodeOf(handle != INVALID_HANDLE_VALUE);
    });
    if (code != ERROR_SUCCESS) Fail(from, code);
    WindowsFile file(from, handle);
    file.Sync();
    file.Close();
  }
};

}  // namespace

std::unique_ptr<FileSystem> NativeFileSystem() { return std::make_unique<WindowsFileSystem>(); }

}  // namespace kestrin::base
