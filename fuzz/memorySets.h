#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/fileSystem.h"
#include "fuzz/input.h"

namespace kestrin::fuzz {

/// A file system whose files are kept in memory: those published under their names.
class MemorySets : public base::FileSystem {
 public:
  std::unique_ptr<base::OutputFile> Create(const std::string& path) override {
    return std::make_unique<File>(*this, path);
  }
  void Remove(const std::string& path) override { published.erase(path); }
  void SyncFolderOf(const std::string&) override {}
  bool Exists(const std::string& path) override { return published.count(path) > 0; }
  void MakeFolder(const std::string&) override {}
  void Copy(const std::string&, const std::string&) override {}

  std::map<std::string, std::string> published;

 private:
  class File : public base::OutputFile {
   public:
    File(MemorySets& sets, std::string path) : sets_(sets), path_(std::move(path)) {}
    void WriteAt(std::uint64_t offset, std::string_view bytes) override {
      Require(!closed_, "nothing is written behind a file's end");
      if (bytes_.size() < offset + bytes.size()) bytes_.resize(offset + bytes.size());
      bytes_.replace(offset, bytes.size(), bytes);
    }
    void Sync() override {}
    void Close() override { closed_ = true; }
    void Publish() override {
      Require(closed_, "no file gets its name before its end");
      sets_.published[path_] = bytes_;
    }

   private:
    MemorySets& sets_;
    std::string path_;
    std::string bytes_;
    bool closed_ = false;
  };
};

}  // namespace kestrin::fuzz
