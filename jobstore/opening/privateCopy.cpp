#include "jobstore/opening/privateCopy.h"

#include <cerrno>
#include <fstream>

#include "jobstore/opening/jobMarks.h"

namespace kestrin::opening {
namespace fs = std::filesystem;
namespace {

/// SQLite takes the name from the very end of a journal, before a mark of 8 bytes. One more
/// byte is no such mark, whatever was before it, and rolling back stops ahead of it.
std::error_code HideSuperJournal(const fs::path& journal) {
  errno = 0;
  std::ofstream file(journal, std::ios::binary | std::ios::app);
  file.put('\0');
  file.close();
  if (file) return {};
  return {errno != 0 ? errno : EIO, std::generic_category()};
}

}  // namespace

PrivateFolder::~PrivateFolder() {
  std::error_code ignored;
  if (!folder_.path.empty()) fs::remove_all(folder_.path, ignored);
}

PrivateCopy::PrivateCopy(const fs::path& job) {
  if (error_) return;
  const JobMarks before = MarksOf(job);
  Copy(job, "");
  for (const char* suffix : {"-journal", "-wal"}) {
    if (!error_ && SizeOf(Beside(job, suffix)) > 0) Copy(job, suffix);
  }
  if (!error_ && !StillHold(before, job)) {
    error_ = std::make_error_code(std::errc::device_or_resource_busy);
  }
  const fs::path journal = Beside(Path(), "-journal");
  if (!error_ && SizeOf(journal) > 0) error_ = HideSuperJournal(journal);
}

void PrivateCopy::Copy(const fs::path& job, const char* suffix) {
  const fs::path copy = Beside(Path(), suffix);
  if (!CopyTo(Beside(job, suffix), copy, error_)) return;
  // A read-only medium hands its permissions on to the copy.
  fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, error_);
}

fs::path Beside(const fs::path& job, const char* suffix) {
  fs::path path = job;
  path += suffix;
  return path;
}

std::uintmax_t SizeOfAll(const fs::path& job) {
  return SizeOf(job) + SizeOf(Beside(job, "-wal")) + SizeOf(Beside(job, "-journal"));
}

}  // namespace kestrin::opening
