#include "jobstore/opening/jobCopy.h"

#include <fstream>

#include "base/utf8Path.h"
#include "jobstore/opening/jobFile.h"
#include "jobstore/opening/jobOpening.h"

namespace kestrin::opening {
namespace fs = std::filesystem;
namespace {

/// A journal is voided by a zero in its beginning.
bool HoldsChanges(const fs::path& journal) {
  if (SizeOf(journal) == 0) return false;
  return std::ifstream(journal, std::ios::binary).get() > 0;
}

bool HasPartsBeside(const fs::path& job) {
  return SizeOf(Beside(job, "-wal")) > 0 || HoldsChanges(Beside(job, "-journal"));
}

base::FileError WrittenMeanwhile(const std::string& job) {
  return {job, "another program is writing to it"};
}

/// Ends with its scope.
class Backup {
 public:
  Backup(sqlite3* from, sqlite3* to) : backup_(sqlite3_backup_init(to, "main", from, "main")) {}
  ~Backup() { sqlite3_backup_finish(backup_); }
  Backup(const Backup&) = delete;
  Backup& operator=(const Backup&) = delete;

  /// Copies all pages, at most `limit`: a forged journal can make a job of any size.
  int Run(std::uintmax_t limit) {
    if (backup_ == nullptr) return SQLITE_NOMEM;
    // Only counts them; an error comes again below.
    sqlite3_backup_step(backup_, 0);
    const auto pages = static_cast<unsigned>(sqlite3_backup_pagecount(backup_));
    return pages > limit ? SQLITE_TOOBIG : sqlite3_backup_step(backup_, -1);
  }

 private:
  sqlite3_backup* backup_;
};

/// Brings the parts of a job together in a new file that only this program knows; the result
/// is the library's code, SQLITE_DONE on success.
int BringTogether(const fs::path& job, const std::string& to) {
  constexpr std::uintmax_t kSmallestPage = 512;
  const OpenedJob opened = OpenJobFile(base::Utf8Of(job));
  if (opened.result != SQLITE_OK) return opened.result;
  if (opened.unreadable != SQLITE_OK) return opened.unreadable;
  sqlite3* database = nullptr;
  const int code = sqlite3_open(to.c_str(), &database);
  const DatabasePtr target(database);
  if (code != SQLITE_OK) return code;
  const int copied = Backup(opened.database.get(), database).Run(SizeOfAll(job) / kSmallestPage);
  return opened.IsOneState() ? copied : SQLITE_BUSY;
}

/// Copies a job that is in one file while nobody writes to it; where nobody can be kept from
/// that, a copy that somebody wrote to meanwhile goes again.
void CopyAtRest(base::FileSystem& files, const std::string& job, const std::string& copy) {
  const OpenedJob opened = OpenJobFile(job);
  int code = opened.unreadable;
  if (opened.database != nullptr) {
    // Locks it, if only by asking.
    code = sqlite3_exec(opened.database.get(), "SELECT count(*) FROM sqlite_master", nullptr,
                        nullptr, nullptr);
  }
  if (code == SQLITE_BUSY) throw WrittenMeanwhile(job);
  files.Copy(job, copy);
  if (opened.IsOneState()) return;
  files.Remove(copy);
  throw WrittenMeanwhile(job);
}

/// A database in write-ahead mode asks for two files beside it wherever it is opened; this
/// takes the mode out of its header. False when that fails.
bool LeaveWriteAheadMode(const fs::path& database) {
  constexpr std::streamoff kFormatVersions = 18;
  std::fstream file(database, std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(kFormatVersions).write("\1\1", 2);
  file.close();
  return file.good();
}

}  // namespace

void CopyJob(base::FileSystem& files, const std::string& job, const std::string& copy) {
  const fs::path file = JobFile(job);
  if (file.empty()) return files.Copy(job, copy);
  if (!HasPartsBeside(file)) return CopyAtRest(files, job, copy);
  const PrivateFolder folder;
  if (folder.Error()) throw base::FileError(job, folder.Error().message());
  const fs::path whole = folder.Path() / "whole.sqlite";
  int code = BringTogether(file, LibraryText(whole));
  if (code == SQLITE_DONE && !LeaveWriteAheadMode(whole)) code = SQLITE_IOERR;
  if (code == SQLITE_BUSY) throw WrittenMeanwhile(job);
  if (code != SQLITE_DONE) throw base::FileError(job, "code " + std::to_string(code));
  files.Copy(base::Utf8Of(whole), copy);
}

}  // namespace kestrin::opening
