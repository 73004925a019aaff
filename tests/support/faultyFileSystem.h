#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/fileSystem.h"

namespace kestrin::test {

/// The reason every made-up failure gives.
inline constexpr const char* kMadeUpReason = "made-up failure";

/// A file system whose N-th operation fails, counted over all operations of it and
/// its files from 1. A failing write leaves half of its bytes, a failing close has
/// closed; every other failing operation has done nothing.
class FaultyFileSystem : public base::FileSystem {
 public:
  enum class Lasts {
    kOnce,       ///< only that operation fails
    kEverSince,  ///< and all after it but removals, like a disk that stays full
    kKilled      ///< nothing fails, the process is killed in its place
  };

  explicit FaultyFileSystem(base::FileSystem& real) : real_(real) {}

  /// 0: nothing fails.
  void FailAt(int operation, Lasts lasts = Lasts::kOnce);

  /// Operations since FailAt.
  int Operations() const { return operations_; }

  /// What failed first ("create", "write", ...) and the path it was about; empty
  /// when nothing did.
  const std::string& FailedOperation() const { return failedOperation_; }
  const std::string& FailedPath() const { return failedPath_; }

  std::unique_ptr<base::OutputFile> Create(const std::string& path) override;
  std::shared_ptr<const void> LockFolderOf(const std::string& path) override;
  void Remove(const std::string& path) override;
  void SyncFolderOf(const std::string& path) override;
  bool Exists(const std::string& path) override;
  void MakeFolder(const std::string& path) override;
  void Copy(const std::string& from, const std::string& to) override;

 private:
  friend class FaultyFile;

  /// Counts an operation and throws when it is to fail, after `onFailure`.
  void Count(
      const char* operation, const std::string& path,
      const std::function<void()>& onFailure = [] {});

  base::FileSystem& real_;
  int failAt_ = 0;
  Lasts lasts_ = Lasts::kOnce;
  int operations_ = 0;
  std::string failedOperation_;
  std::string failedPath_;
};

}  // namespace kestrin::test
