#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/fileSystem.h"

namespace kestrin::shapefile {

/// One file of a set while it is made: written front to back through a buffer, without a
/// name of its own. Unless it is kept, destruction removes it, published or not.
/// Failure: every operation may throw a FileError about the target, the name that means
/// something to the user; destruction never throws.
class SetFile {
 public:
  /// The largest file of a set, in bytes: readers take sizes and offsets as signed
  /// 32-bit numbers.
  static constexpr std::uint64_t kLargest = 0x7FFFFFFF;

  SetFile(base::FileSystem& files, std::string target, std::size_t bufferSize);
  ~SetFile();
  SetFile(const SetFile&) = delete;
  SetFile& operator=(const SetFile&) = delete;

  /// The next `size` bytes of the file, to be filled before the next call. At most
  /// the buffer's size.
  char* Next(std::size_t size) {
    if (capacity_ - filled_ < size) Flush();
    char* place = buffer_.get() + filled_;
    filled_ += size;
    return place;
  }

  /// Appends any number of bytes.
  void Append(std::string_view bytes);

  /// Replaces bytes that one call of Next gave, or that a file no longer than the buffer begins
  /// with: in the buffer where they are still there, with a write of their own where they are not.
  void Patch(std::uint64_t offset, std::string_view bytes);

  /// Bytes so far.
  std::uint64_t Size() const { return flushed_ + filled_; }

  /// Writes what is left, brings the file to the medium if `synced`, and closes it.
  void Finish(bool synced);

  /// Gives the finished file its name.
  void Publish();

  /// Leaves the file where it is.
  void Keep() { published_ = false; }

 private:
  void Flush();
  void WriteAt(std::uint64_t offset, std::string_view bytes);

  base::FileSystem& files_;
  std::string target_;
  std::size_t capacity_;
  std::unique_ptr<char[]> buffer_;
  std::size_t filled_ = 0;
  std::uint64_t flushed_ = 0;
  std::unique_ptr<base::OutputFile> file_;
  bool published_ = false;  // and not yet kept
};

}  // namespace kestrin::shapefile
