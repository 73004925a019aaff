#include <windows.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "base/fileSystem.h"
#include "base/nameKey.h"
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

/// In full, up to its last separator: one folder is one text, but for letters' case.
std::wstring FolderOf(const std::string& path) {
  const std::wstring whole = AbsolutePath(Wide(path));
  return whole.substr(0, whole.rfind(L'\\') + 1);
}

/// What killed processes have left beside a file. One that is still in use cannot be opened so.
void RemoveAbandoned(const std::string& path) {
  const std::wstring folder = FolderOf(path);
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW((folder + L"kestrin-*.tmp").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    if (!IsTemporaryName(Utf8Text(found.cFileName))) continue;
    const HANDLE abandoned = CreateFileW((folder + found.cFileName).c_str(), DELETE, 0, nullptr,
                                         OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (abandoned != INVALID_HANDLE_VALUE) CloseHandle(abandoned);
  } while (FindNextFileW(search, &found));
  FindClose(search);
}

/// Has a temporary name that is marked to vanish with the last handle until it is published.
class WindowsFile : public OutputFile {
 public:
  WindowsFile(std::string path, Unfinished unfinished)
      : path_(std::move(path)), temporary_(Wide(TemporaryNameBeside(path_))) {
    RemoveAbandoned(path_);
    // Who looks for abandoned files shares them with nobody; a move by name has to be let in.
    handle_ = CreateFileW(temporary_.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_DELETE, nullptr,
                          CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle_ == INVALID_HANDLE_VALUE) Fail(path_);
    if (unfinished == Unfinished::kVanish) LetVanish(true);
  }
  ~WindowsFile() override {
    if (handle_ == INVALID_HANDLE_VALUE) return;
    CloseHandle(handle_);
    // Not every drive knows how to let a file vanish.
    DeleteFileW(temporary_.c_str());
  }
  WindowsFile(const WindowsFile&) = delete;
  WindowsFile& operator=(const WindowsFile&) = delete;

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
    // The handle is what keeps the file; closing one brings up nothing here.
  }

  void Publish() override {
    const DWORD code = MoveTo(MOVEFILE_REPLACE_EXISTING);
    if (code != ERROR_SUCCESS) FailAsTarget(path_, code);
  }

  /// Publishes it unless something has its name, which is then the failure.
  void PublishNew() {
    const DWORD code = MoveTo(0);
    if (code != ERROR_SUCCESS) Fail(path_, code);
  }

  /// The time a copy's original was last changed.
  void TakeTimeOf(HANDLE original) {
    FILETIME time{};
    if (GetFileTime(original, nullptr, nullptr, &time))
      SetFileTime(handle_, nullptr, nullptr, &time);
  }

 private:
  void LetVanish(bool vanishes) {
    FILE_DISPOSITION_INFO mark{};
    mark.DeleteFile = vanishes;
    SetFileInformationByHandle(handle_, FileDispositionInfo, &mark, sizeof mark);
  }

  DWORD MoveTo(DWORD flags) {
    const std::wstring target = Wide(path_);
    // What is to vanish cannot be moved.
    LetVanish(false);
    const DWORD code = Patiently([&] {
      return CodeOf(
          MoveFileExW(temporary_.c_str(), target.c_str(), flags | MOVEFILE_WRITE_THROUGH));
    });
    // Others may open it from now on, which the handle would refuse them.
    if (code == ERROR_SUCCESS) CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
    return code;
  }

  std::string path_;
  std::wstring temporary_;
  HANDLE handle_ = INVALID_HANDLE_VALUE;  // none once it is published
};

/// A mutex of this thread; the system takes it from a process that is killed.
class FolderLock {
 public:
  /// Not opened where the system has none for this user.
  explicit FolderLock(const std::wstring& folder) {
    const auto key = std::hash<std::string>()(NameKey(Utf8Text(folder)));
    const std::wstring name = L"Global\\kestrin-" + std::to_wstring(key);
    mutex_ = CreateMutexW(nullptr, FALSE, name.c_str());
    if (mutex_ != nullptr) code_ = WaitForSingleObject(mutex_, kLongestWait);
  }
  ~FolderLock() {
    if (IsHeld()) ReleaseMutex(mutex_);
    if (mutex_ != nullptr) CloseHandle(mutex_);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  bool IsHeld() const { return code_ == WAIT_OBJECT_0 || code_ == WAIT_ABANDONED; }
  bool IsTaken() const { return code_ == WAIT_TIMEOUT; }

 private:
  static constexpr DWORD kLongestWait = 10'000;

  HANDLE mutex_ = nullptr;
  DWORD code_ = WAIT_FAILED;
};

void CopyBytes(const std::string& from, WindowsFile& to) {
  const HANDLE source = CreateFileW(Wide(from).c_str(), GENERIC_READ, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (source == INVALID_HANDLE_VALUE) Fail(from);
  const std::unique_ptr<void, decltype(&CloseHandle)> closed(source, &CloseHandle);
  const auto buffer = std::make_unique_for_overwrite<char[]>(kLargestWrite);
  for (std::uint64_t offset = 0;;) {
    DWORD count = 0;
    if (!ReadFile(source, buffer.get(), DWORD{kLargestWrite}, &count, nullptr)) Fail(from);
    if (count == 0) break;
    to.WriteAt(offset, {buffer.get(), count});
    offset += count;
  }
  to.TakeTimeOf(source);
}

class WindowsFileSystem : public FileSystem {
 public:
  explicit WindowsFileSystem(Unfinished unfinished) : unfinished_(unfinished) {}

  std::unique_ptr<OutputFile> Create(const std::string& path) override {
    return std::make_unique<WindowsFile>(path, unfinished_);
  }

  std::shared_ptr<const void> LockFolderOf(const std::string& path) override {
    auto lock = std::make_shared<const FolderLock>(FolderOf(path));
    if (lock->IsTaken()) throw FileError(path, std::string(kFolderTaken));
    if (!lock->IsHeld()) return {};
    return lock;
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
    WindowsFile file(to, unfinished_);
    CopyBytes(from, file);
    file.Sync();
    file.PublishNew();
  }

 private:
  Unfinished unfinished_;
};

}  // namespace

std::unique_ptr<FileSystem> NativeFileSystem(Unfinished unfinished) {
  return std::make_unique<WindowsFileSystem>(unfinished);
}

}  // namespace kestrin::base
