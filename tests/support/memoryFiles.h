#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/fileSystem.h"

namespace kestrin::test {

/// A file system of names alone, for procedures that look at files but write none.
/// Remembers what it was asked to make and copy, in order.
class MemoryFiles : public base::FileSystem {
 public:
  /// Adds an empty set of three files.
  void AddSet(const std::string& basePath) {
    for (const char* extension : {".shp", ".shx", ".dbf"}) names.insert(basePath + extension);
  }

  std::unique_ptr<base::OutputFile> Create(const std::string& path) override {
    throw base::FileError(path, "nothing is written here");
  }
  void Rename(const std::string& from, const std::string& to) override {
    names.erase(from);
    names.insert(to);
  }
  void Remove(const std::string& path) override { names.erase(path); }
  void SyncFolderOf(const std::string&) override {}
  bool Exists(const std::string& path) override {
    asked.push_back(path);
    return names.count(path) > 0;
  }
  void MakeFolder(const std::string& path) override {
    if (refused.count(path) > 0) throw base::FileError(path, "refused");
    made.push_back(path);
    names.insert(path);
  }
  void Copy(const std::string& from, const std::string& to) override {
    if (refused.count(to) > 0) throw base::FileError(to, "refused");
    copied.push_back(from + " to " + to);
    names.insert(to);
  }

  std::set<std::string> names;
  /// Paths that can be neither made nor copied to.
  std::set<std::string> refused;
  std::vector<std::string> asked;
  std::vector<std::string> made;
  std::vector<std::string> copied;
};

}  // namespace kestrin::test
