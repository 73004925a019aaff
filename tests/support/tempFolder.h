#pragma once

#include <filesystem>
#include <string>

#include "base/utf8Path.h"

namespace kestrin::test {

/// A fresh folder, removed with all it holds at the end of the scope.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  /// Path of an entry of the folder, with the system's own separators.
  std::string operator/(const std::string& name) const {
    return base::WithOwnSeparators(base::Utf8Of(path_ / base::PathOf(name)));
  }

 private:
  std::filesystem::path path_;
};

/// A file's bytes; fails the test when it cannot be read.
std::string FileBytes(const std::string& path);

}  // namespace kestrin::test
