#pragma once

#include <filesystem>
#include <system_error>

namespace kestrin::opening {

/// A copy of a job and of what lies beside it (rollback journal, write-ahead log) in a folder
/// of its own that only this user can enter, for a job that has to be repaired before it can be
/// read. The copy may be written to: SQLite rolls the journal back in it. Folder and copy go at
/// the end of the scope.
///
/// A journal can name a super-journal, the common journal of a transaction over several files,
/// which SQLite looks for and deletes after rolling back; a forged one could name any file. The
/// copied journal is therefore made to name none, and is rolled back like any other: no console
/// writes to two jobs at once.
class PrivateCopy {
 public:
  /// Copies at once.
  /// Failure: Error() says why; there is then nothing to be read.
  explicit PrivateCopy(const std::filesystem::path& job);
  ~PrivateCopy();
  PrivateCopy(const PrivateCopy&) = delete;
  PrivateCopy& operator=(const PrivateCopy&) = delete;

  const std::error_code& Error() const { return error_; }
  std::filesystem::path Path() const { return folder_ / "job.sqlite"; }

 private:
  void Copy(const std::filesystem::path& job, const char* suffix);

  std::filesystem::path folder_;
  std::error_code error_;
};

/// The path of the file that SQLite keeps beside a database: suffix "-wal", "-journal".
std::filesystem::path Beside(const std::filesystem::path& job, const char* suffix);

}  // namespace kestrin::opening
