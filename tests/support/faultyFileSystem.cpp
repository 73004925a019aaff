#include "tests/support/faultyFileSystem.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#endif

#include <string_view>
#include <utility>

namespace kestrin::test {

namespace {

/// Nothing of the program runs any more, as when the system or its user ends it.
[[noreturn]] void KillThisProcess() {
#ifdef _WIN32
  TerminateProcess(GetCurrentProcess(), 9);
#else
  raise(SIGKILL);
#endif
  for (;;) {
  }
}

}  // namespace

class FaultyFile : public base::OutputFile {
 public:
  FaultyFile(FaultyFileSystem& files, std::string path, std::unique_ptr<base::OutputFile> real)
      : files_(files), path_(std::move(path)), real_(std::move(real)) {}

  void WriteAt(std::uint64_t offset, std::string_view bytes) override {
    files_.Count("write", path_,
                 [&] { real_->WriteAt(offset, bytes.substr(0, bytes.size() / 2)); });
    real_->WriteAt(offset, bytes);
  }
  void Sync() override {
    files_.Count("sync", path_);
    real_->Sync();
  }
  void Close() override {
    files_.Count("close", path_, [&] { real_->Close(); });
    real_->Close();
  }
  void Publish() override {
    files_.Count("publish", path_);
    real_->Publish();
  }

 private:
  FaultyFileSystem& files_;
  std::string path_;
  std::unique_ptr<base::OutputFile> real_;
};

void FaultyFileSystem::FailAt(int operation, Lasts lasts) {
  failAt_ = operation;
  lasts_ = lasts;
  operations_ = 0;
  failedOperation_.clear();
  failedPath_.clear();
}

void FaultyFileSystem::Count(const char* operation, const std::string& path,
                             const std::function<void()>& onFailure) {
  ++operations_;
  if (failAt_ == 0 || operations_ < failAt_) return;
  const bool later = operations_ > failAt_;
  if (later && (lasts_ == Lasts::kOnce || std::string_view(operation) == "remove")) return;
  if (!later) {
    failedOperation_ = operation;
    failedPath_ = path;
  }
  onFailure();
  if (lasts_ == Lasts::kKilled) KillThisProcess();
  throw base::FileError(path, kMadeUpReason);
}

std::unique_ptr<base::OutputFile> FaultyFileSystem::Create(const std::string& path) {
  Count("create", path);
  return std::make_unique<FaultyFile>(*this, path, real_.Create(path));
}

std::shared_ptr<const void> FaultyFileSystem::LockFolderOf(const std::string& path) {
  Count("lock folder", path);
  return real_.LockFolderOf(path);
}

void FaultyFileSystem::Remove(const std::string& path) {
  Count("remove", path);
  real_.Remove(path);
}

void FaultyFileSystem::SyncFolderOf(const std::string& path) {
  Count("sync folder", path);
  real_.SyncFolderOf(path);
}

bool FaultyFileSystem::Exists(const std::string& path) {
  Count("exists", path);
  return real_.Exists(path);
}

void FaultyFileSystem::MakeFolder(const std::string& path) {
  Count("make folder", path);
  real_.MakeFolder(path);
}

void FaultyFileSystem::Copy(const std::string& from, const std::string& to) {
  Count("copy", to);
  real_.Copy(from, to);
}

}  // namespace kestrin::test
