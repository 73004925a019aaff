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

/// Why a folder could not be had.
inline constexpr std::string_view kFolderTaken = "Another export is writing in the folder";

/// A file being written, by one thread at a time. Until it is published, it goes with this
/// object and with its process, whatever ends that.
/// Failure: every operation throws FileError, about the name the file is to have.
class OutputFile {
 public:
  /// Never complains; what matters was closed with Close before.
  virtual ~OutputFile() = default;

  /// Writes all bytes at the offset; the file grows as needed.
  virtual void WriteAt(std::uint64_t offset, std::string_view bytes) = 0;

  /// Returns when the bytes have reached the medium.
  virtual void Sync() = 0;

  /// No byte is written after this.
  virtual void Close() = 0;

  /// Gives the closed file its name, in the place of what has it. Nothing else is done to it
  /// after that.
  virtual void Publish() = 0;
};

/// Everything that is done to files that are written, so that a test can make each of
/// its operations fail. Paths are UTF-8. Any thread may call.
/// Failure: operations throw FileError unless they say otherwise.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Creates a file that is to be called `path` once it is published. Where the drive has no
  /// file that goes with its process, it has a temporary name beside `path` until then; what
  /// killed processes have left there under such names goes first.
  virtual std::unique_ptr<OutputFile> Create(const std::string& path) = 0;

  /// Has the names in a file's folder to this process and thread alone among those that ask
  /// for it, until what it returns is gone. Null where the system or the drive cannot say.
  /// Failure: somebody else has had them for ten seconds.
  virtual std::shared_ptr<const void> LockFolderOf(const std::string& /*path*/) { return {}; }

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

/// How files lie on the drive until they are published: `kNamed` is for drives that know no
/// file which goes with its process, and is taken by itself there.
enum class Unfinished { kVanish, kNamed };

/// The real file system. Stateless; any number may exist. Running into the process's
/// file-size limit is a FileError too: the signal that goes with it (SIGXFSZ) is kept
/// from the writing thread, so no program has to ignore it.
std::unique_ptr<FileSystem> NativeFileSystem(Unfinished unfinished = Unfinished::kVanish);

}  // namespace kestrin::base
