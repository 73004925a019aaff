#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "base/fileSystem.h"
#include "base/paths.h"
#include "base/temporaryName.h"

namespace kestrin::base {
namespace {

constexpr mode_t kFileMode = 0666;
constexpr mode_t kFolderMode = 0777;
constexpr std::size_t kCopySize = std::size_t{1} << 18;
constexpr int kLockTries = 5000;
constexpr std::chrono::milliseconds kLockPause{2};

[[noreturn]] void Fail(const std::string& path, int code) {
  throw FileError(path, std::generic_category().message(code));
}

[[noreturn]] void Fail(const std::string& path) { Fail(path, errno); }

/// Repeats a system call as long as signals interrupt it.
template <class Call>
auto Retried(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// A file descriptor, closed at the end of its scope.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept : number_(other.Release()) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  int Number() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }
  int Release() { return std::exchange(number_, -1); }

 private:
  int number_;
};

int Open(const std::string& path, int flags) {
  return Retried([&] { return open(path.c_str(), flags | O_CLOEXEC, kFileMode); });
}

/// Writing past the process's file-size limit is an error like any other, but comes
/// with a signal that would end the process. While one of these lives, this thread
/// does not get that signal, and a pending one is taken out at the end.
class WithoutSizeSignal {
 public:
  WithoutSizeSignal() {
    sigemptyset(&signal_);
    sigaddset(&signal_, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signal_, &before_);
  }
  ~WithoutSizeSignal() {
    if (sigismember(&before_, SIGXFSZ) == 1) return;
    const int reason = errno;
    const timespec atOnce{};
    sigtimedwait(&signal_, nullptr, &atOnce);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    errno = reason;
  }
  WithoutSizeSignal(const WithoutSizeSignal&) = delete;
  WithoutSizeSignal& operator=(const WithoutSizeSignal&) = delete;

 private:
  sigset_t signal_{};
  sigset_t before_{};
};

std::string FolderOf(const std::string& path) {
  const std::string folder = SplitAtLastSeparator(path).folder;
  return folder.empty() ? "." : folder;
}

/// The one name by which a file without any can be linked to.
std::string NameInProcess(int number) { return "/proc/self/fd/" + std::to_string(number); }

/// A file without a name: -1 where the drive has none, or could not name it later.
int OpenUnnamed(const std::string& folder) {
  Descriptor file(Open(folder, O_WRONLY | O_TMPFILE));
  if (!file.IsOpen() || access(NameInProcess(file.Number()).c_str(), F_OK) != 0) return -1;
  return file.Release();
}

/// Locked for as long as the descriptor or the process lives, so that others can tell.
int CreateLocked(const std::string& path) {
  for (;;) {
    Descriptor file(Open(path, O_WRONLY | O_CREAT | O_EXCL));
    if (!file.IsOpen()) return -1;
    // Where nothing can be locked, nothing is taken for abandoned either.
    Retried([&] { return flock(file.Number(), LOCK_EX); });
    // Before it was locked it may have been taken for abandoned.
    if (access(path.c_str(), F_OK) == 0) return file.Release();
  }
}

void RemoveIfAbandoned(const std::string& path) {
  const Descriptor file(Open(path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK));
  if (file.IsOpen() && flock(file.Number(), LOCK_EX | LOCK_NB) == 0) unlink(path.c_str());
}

/// What killed processes have left in a folder; nobody waits for it, so failures mean nothing.
void RemoveAbandoned(const std::string& folder) {
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (IsTemporaryName(entry->path().filename().native())) RemoveIfAbandoned(entry->path());
  }
}

/// Gives a file a name that nothing has.
void RenameToNew(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
  if (errno != EINVAL && errno != ENOSYS) Fail(to);
  // Not every file system knows the exclusive rename; a link is as exclusive, but
  // removable media have none.
  if (link(from.c_str(), to.c_str()) == 0) {
    unlink(from.c_str());
    return;
  }
  if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) Fail(to);
  struct stat status {};
  if (lstat(to.c_str(), &status) == 0) Fail(to, EEXIST);
  if (rename(from.c_str(), to.c_str()) != 0) Fail(to);
}

class PosixFile : public OutputFile {
 public:
  PosixFile(const std::string& path, Unfinished unfinished)
      : path_(path),
        descriptor_(unfinished == Unfinished::kVanish ? OpenUnnamed(FolderOf(path)) : -1) {
    if (!descriptor_.IsOpen()) CreateNamed();
  }
  ~PosixFile() override {
    if (!temporary_.empty()) unlink(temporary_.c_str());
  }
  PosixFile(const PosixFile&) = delete;
  PosixFile& operator=(const PosixFile&) = delete;

  void WriteAt(std::uint64_t offset, std::string_view bytes) override {
    const WithoutSizeSignal guard;
    const auto start = static_cast<off64_t>(offset);
    const auto size = static_cast<off64_t>(bytes.size());
    while (!bytes.empty()) {
      const ssize_t count = Retried([&] {
        return pwrite(descriptor_.Number(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
      });
      if (count < 0) Fail(path_);
      if (count == 0) Fail(path_, ENOSPC);
      offset += static_cast<std::uint64_t>(count);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    // Has the system begin with what Sync would else wait for at the end, all at once,
    // with the window standing still. Only a hint, so its failure means nothing.
    sync_file_range(descriptor_.Number(), start, size, SYNC_FILE_RANGE_WRITE);
  }

  void Sync() override {
    if (Retried([&] { return fsync(descriptor_.Number()); }) != 0) Fail(path_);
  }

  void Close() override {
    // The descriptor itself is what keeps the file, or its lock, until it is published; a
    // second one tells of what only closing brings up. Interrupted or not, that one is gone.
    const int second = fcntl(descriptor_.Number(), F_DUPFD_CLOEXEC, 0);
    if (second < 0 || (close(second) != 0 && errno != EINTR)) Fail(path_);
  }

  void Publish() override {
    if (!temporary_.empty()) {
      if (rename(temporary_.c_str(), path_.c_str()) != 0) Fail(path_);
      temporary_.clear();
      return;
    }
    // A link replaces nothing.
    while (!Link()) {
      if (unlink(path_.c_str()) != 0 && errno != ENOENT) Fail(path_);
    }
  }

  /// Publishes it unless something has its name, which is then the failure.
  void PublishNew() {
    if (temporary_.empty()) {
      if (!Link()) Fail(path_, EEXIST);
      return;
    }
    RenameToNew(temporary_, path_);
    temporary_.clear();
  }

 private:
  void CreateNamed() {
    RemoveAbandoned(FolderOf(path_));
    const std::string name = TemporaryNameBeside(path_);
    descriptor_ = Descriptor(CreateLocked(name));
    if (!descriptor_.IsOpen()) Fail(path_);
    temporary_ = name;
  }

  /// False when something has the name.
  bool Link() {
    if (linkat(AT_FDCWD, NameInProcess(descriptor_.Number()).c_str(), AT_FDCWD, path_.c_str(),
               AT_SYMLINK_FOLLOW) == 0) {
      return true;
    }
    if (errno != EEXIST) Fail(path_);
    return false;
  }

  std::string path_;
  std::string temporary_;  // empty where the file has no name
  Descriptor descriptor_;
};

void CopyBytes(const std::string& from, OutputFile& to) {
  const Descriptor source(Open(from, O_RDONLY));
  if (!source.IsOpen()) Fail(from);
  const auto buffer = std::make_unique_for_overwrite<char[]>(kCopySize);
  for (std::uint64_t offset = 0;;) {
    const ssize_t count = Retried([&] { return read(source.Number(), buffer.get(), kCopySize); });
    if (count < 0) Fail(from);
    if (count == 0) return;
    to.WriteAt(offset, {buffer.get(), static_cast<std::size_t>(count)});
    offset += static_cast<std::uint64_t>(count);
  }
}

class PosixFileSystem : public FileSystem {
 public:
  explicit PosixFileSystem(Unfinished unfinished) : unfinished_(unfinished) {}

  std::unique_ptr<OutputFile> Create(const std::string& path) override {
    return std::make_unique<PosixFile>(path, unfinished_);
  }

  std::shared_ptr<const void> LockFolderOf(const std::string& path) override {
    auto folder = std::make_shared<const Descriptor>(Open(FolderOf(path), O_RDONLY | O_DIRECTORY));
    for (int tries = 1; flock(folder->Number(), LOCK_EX | LOCK_NB) != 0; ++tries) {
      if (errno == EINTR) continue;
      if (errno != EWOULDBLOCK) return {};
      if (tries == kLockTries) throw FileError(path, std::string(kFolderTaken));
      std::this_thread::sleep_for(kLockPause);
    }
    return folder;
  }

  void Remove(const std::string& path) override {
    if (unlink(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) Fail(path);
  }

  void SyncFolderOf(const std::string& path) override {
    const std::string folder = FolderOf(path);
    const Descriptor opened(Open(folder, O_RDONLY | O_DIRECTORY));
    // A folder may be writable and yet not readable.
    if (!opened.IsOpen() && errno == EACCES) return;
    if (!opened.IsOpen()) Fail(folder);
    // Some file systems have no way to sync a folder.
    if (Retried([&] { return fsync(opened.Number()); }) != 0 && errno != EINVAL) Fail(folder);
  }

  bool Exists(const std::string& path) override {
    struct stat status {};
    if (lstat(path.c_str(), &status) == 0) return true;
    if (errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG) Fail(path);
    return false;
  }

  void MakeFolder(const std::string& path) override {
    if (mkdir(path.c_str(), kFolderMode) == 0) return;
    const int reason = errno;
    struct stat status {};
    const bool isFolder = stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    if (!isFolder) Fail(path, reason);
  }

  void Copy(const std::string& from, const std::string& to) override {
    PosixFile file(to, unfinished_);
    CopyBytes(from, file);
    file.Sync();
    file.Close();
    file.PublishNew();
    SyncFolderOf(to);
  }

 private:
  Unfinished unfinished_;
};

}  // namespace

std::unique_ptr<FileSystem> NativeFileSystem(Unfinished unfinished) {
  return std::make_unique<PosixFileSystem>(unfinished);
}

}  // namespace kestrin::base
