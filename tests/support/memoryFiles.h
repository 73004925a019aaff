#pragma once

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/fileSystem.h"
#include "base/paths.h"

namespace kestrin::test {

/// A file system of names alone, for procedures that look at files but put nothing into
/// them. Remembers what it was asked to make and copy, in order.
class MemoryFiles : public base::FileSystem {
 public:
  /// Adds an empty set of three files.
  void AddSet(const std::string& basePath) {
    for (const char* extension : {".shp", ".shx", ".dbf"}) names.insert(basePath + extension);
  }

  std::unique_ptr<base::OutputFile> Create(const std::string& path) override {
    if (refused.count(base::SplitAtLastSeparator(path).folder) > 0) {
      throw base::FileError(path, "refused");
    }
    return std::make_unique<EmptyFile>(*this, path);
  }
  void Remove(const std::string& path) override { names.erase(path); }
  void SyncFolderOf(const std::string&) override {}
  bool Exists(const std::string& path) override {
    asked.push_back(path);
    if (!unreadable.empty() && path.starts_with(unreadable)) {
      throw base::FileError(path, "unreadable");
    }
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
  /// Paths that can be neither made nor copied to; those that end in a separator are folders
  /// in which no file can be made.
  std::set<std::string> refused;
  /// Of nothing that begins so can be told whether it exists.
  std::string unreadable;
  std::vector<std::string> asked;
  std::vector<std::string> made;
  std::vector<std::string> copied;

 private:
  class EmptyFile : public base::OutputFile {
   public:
    EmptyFile(MemoryFiles& files, std::string path) : files_(files), path_(std::move(path)) {}
    void WriteAt(std::uint64_t, std::string_view) override {
      throw base::FileError(path_, "nothing is written here");
    }
    void Sync() override {}
    void Close() override {}
    void Publish() override { files_.names.insert(path_); }

   private:
    MemoryFiles& files_;
    std::string path_;
  };
};

}  // namespace kestrin::test
