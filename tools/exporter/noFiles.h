#pragma once

#include "base/fileSystem.h"

namespace kestrin::exporter {

/// Takes whatever is written and keeps nothing of it, so that an export can be run for its
/// figures. Never fails.
class NoFiles : public base::FileSystem {
 public:
  std::unique_ptr<base::OutputFile> Create(const std::string&) override {
    return std::make_unique<NoFile>();
  }
  void Remove(const std::string&) override {}
  void SyncFolderOf(const std::string&) override {}
  bool Exists(const std::string&) override { return false; }
  void MakeFolder(const std::string&) override {}
  void Copy(const std::string&, const std::string&) override {}

 private:
  class NoFile : public base::OutputFile {
    void WriteAt(std::uint64_t, std::string_view) override {}
    void Sync() override {}
    void Close() override {}
    void Publish() override {}
  };
};

}  // namespace kestrin::exporter
