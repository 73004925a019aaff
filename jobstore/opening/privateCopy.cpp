#include "jobstore/opening/privateCopy.h"

#include <cerrno>
#include <fstream>

#include "base/utf8Path.h"
#include "jobstore/opening/jobFile.h"
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

constexpr const char* kBegin = "kestrin-copy-";

void RemoveAbandoned(const fs::path& root) {
  std::error_code error;
  for (fs::directory_iterator entry(root, error), end; !error && entry != end;
       entry.increment(error)) {
    if (base::Utf8Of(entry->path().filename()).starts_with(kBegin)) RemoveUnused(entry->path());
  }
}

}  // namespace

PrivateFolder::PrivateFolder() {
  const fs::path root = fs::temp_directory_path(error_);
  if (error_) return;
  RemoveAbandoned(root);
  // Not every drive can say that a folder is in use. One that can gives it within a few tries,
  // however many programs begin at once.
  constexpr int kTries = 20;
  for (int tries = 1;; ++tries) {
    path_ = MakeOwnFolder(root, kBegin, error_);
    if (error_) return;
    use_ = UseFolder(path_);
    // Before it was in use, it may have been taken for abandoned.
    std::error_code gone;
    if ((use_ || tries >= kTries) && fs::exists(path_, gone)) return;
    fs::remove_all(path_, gone);
  }
}

PrivateFolder::~PrivateFolder() {
  std::error_code ignored;
  // Windows keeps what is open.
  use_.reset();
  if (!path_.empty()) fs::remove_all(path_, ignored);
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
