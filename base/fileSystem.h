#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrin::base {

/// A file operation that failed: the path it was about and the system's reason.
class FileError : public std::runtime_error {
 public:
  FileError(std::string path, std::string reason);

  const std::string& Path() const { return path_; }
  const std::string& Reason() const { return reason_; }

 private:
  std::string path_;
  std::string reason_;
};

/// A file being written, by one thread at a time.
/// Failure: every operation throws FileError.
class OutputFile {
 public:
  /// Closes without complaint; what matters was closed with Close before.
  virtual ~OutputFile() = default;

  /// Writes all bytes at the offset; the file grows as needed.
  virtual void WriteAt(std::uint64_t offset, std::string_view bytes) = 0;

  /// Returns when the bytes have reached the medium.
  virtual void Sync() = 0;

  virtual void Close() = 0;
};

/// Everything that is done to files that are written, so that a test can make each of
/// its operations fail. Paths are UTF-8. Any thread may call.
/// Failure: operations throw FileError unless they say otherwise.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Creates a file that must not exist yet.
  virtual std::unique_ptr<OutputFile> Create(const std::string& path) = 0;

  /// Puts `from` in the place of `to`, whole or not at all.
  virtual void Rename(const std::string& from, const std::string& to) = 0;

  /// Removes a file; a file that is not there is no failure.
  virtual void Remove(const std::string& path) = 0;

  /// Removes files in their order. Where the system keeps a file that another program
  /// has open (Windows), none goes as long as one of them cannot.
  virtual void RemoveAll(std::span<const std::string> paths) {
    for (const std::string& path : paths) Remove(path);
  }

  /// Makes the names in a file's folder durable.
  virtual void SyncFolderOf(const std::string& path) = 0;

  /// Whether anything of that name exists.
  virtual bool Exists(const std::string& path) = 0;

  /// Creates one folder level; an existing folder is no failure.
  virtual void MakeFolder(const std::string& path) = 0;

  /// Copies a file to a name that does not exist yet, whole or not at all.
  virtual void Copy(const std::string& from, const std::string& to) = 0;
};

/// The real file system. Stateless; any number may exist. Running into the process's
/// file-size limit is a FileError too: the signal that goes with it (SIGXFSZ) is kept
/// from the writing thread, so no program has to ignore it.
std::unique_ptr<FileSystem> NativeFileSystem();

}  // namespace kestrin::base
