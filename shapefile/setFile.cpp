#include "shapefile/setFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kestrin::shapefile {
SetFile::SetFile(base::FileSystem& files, std::string target, std::size_t bufferSize)
    : files_(files),
      target_(std::move(target)),
      capacity_(bufferSize),
      buffer_(std::make_unique_for_overwrite<char[]>(bufferSize)),
      file_(files_.Create(target_)) {}

SetFile::~SetFile() {
  file_.reset();
  if (!published_) return;
  try {
    files_.Remove(target_);
  } catch (...) {
    // The failure that led here is the one to be told.
  }
}

void SetFile::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    if (filled_ == capacity_) Flush();
    const std::size_t size = std::min(bytes.size(), capacity_ - filled_);
    std::memcpy(buffer_.get() + filled_, bytes.data(), size);
    filled_ += size;
    bytes.remove_prefix(size);
  }
}

void SetFile::Patch(std::uint64_t offset, std::string_view bytes) {
  if (offset < flushed_) {
    WriteAt(offset, bytes);
  } else {
    std::memcpy(buffer_.get() + (offset - flushed_), bytes.data(), bytes.size());
  }
}

void SetFile::Flush() {
  if (Size() > kLargest) throw base::FileError(target_, "The file would pass 2 GiB");
  WriteAt(flushed_, {buffer_.get(), filled_});
  flushed_ += filled_;
  filled_ = 0;
}

void SetFile::WriteAt(std::uint64_t offset, std::string_view bytes) {
  file_->WriteAt(offset, bytes);
}

void SetFile::Finish(bool synced) {
  Flush();
  if (synced) file_->Sync();
  file_->Close();
}

void SetFile::Publish() {
  file_->Publish();
  published_ = true;
  file_.reset();
}

}  // namespace kestrin::shapefile
