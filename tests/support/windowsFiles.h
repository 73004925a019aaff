#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "base/fileSystem.h"
#include "tests/support/tempFolder.h"

/// Windows only.

namespace kestrin::test {

/// A file that another program has open: others may read and write it.
class InUse {
 public:
  enum class Deleting { kRefused, kAllowed };

  explicit InUse(const std::string& path, Deleting deleting = Deleting::kRefused);
  ~InUse();
  InUse(const InUse&) = delete;
  InUse& operator=(const InUse&) = delete;

  /// What the system says of an operation that such a file refuses.
  static std::string Reason();

 private:
  void* handle_;
};

/// Real files in a folder of their own, and why an operation on them failed.
class WindowsFiles : public testing::Test {
 protected:
  std::string Make(const std::string& name, const std::string& bytes = "old") {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }

  /// The reason of the failure about `path`.
  static std::string Reason(const std::string& path, const std::function<void()>& action) {
    try {
      action();
    } catch (const base::FileError& error) {
      EXPECT_EQ(error.Path(), path);
      return error.Reason();
    }
    return "no failure";
  }

  TempFolder folder_;
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
};

}  // namespace kestrin::test
