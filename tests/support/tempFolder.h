#pragma once

#include <filesystem>
#include <string>

namespace kestrin::test {

/// A fresh folder, removed with all it holds at the end of the scope.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  /// Path of an entry of the folder.
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

/// A file's bytes; fails the test when it cannot be read.
std::string FileBytes(const std::string& path);

}  // namespace kestrin::test
