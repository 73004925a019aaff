#include "jobstore/opening/privateCopy.h"

#include "jobstore/opening/jobFile.h"
#include "jobstore/opening/privateFolder.h"
#include "jobstore/opening/superJournal.h"

namespace kestrin::opening {
namespace fs = std::filesystem;

PrivateCopy::PrivateCopy(const fs::path& job) {
  folder_ = MakePrivateFolder(error_);
  if (error_) return;
  Copy(job, "");
  for (const char* suffix : {"-journal", "-wal"}) {
    if (!error_ && SizeOf(Beside(job, suffix)) > 0) Copy(job, suffix);
  }
  if (!error_) DropSuperJournal(Beside(Path(), "-journal"));
}

PrivateCopy::~PrivateCopy() {
  std::error_code ignored;
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
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

}  // namespace kestrin::opening
