#pragma once

#include <filesystem>
#include <memory>
#include <system_error>

namespace kestrin::opening {

/// A new folder in the system's temporary one that only this user can enter. It goes at the end
/// of the scope with all that lies in it; those whose processes were killed go with the next.
class PrivateFolder {
 public:
  /// Failure: Error() says why; there is then no folder.
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const std::error_code& Error() const { return error_; }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::error_code error_;
  std::filesystem::path path_;
  // Nobody takes the folder for an abandoned one meanwhile.
  std::shared_ptr<const void> use_;
};

/// A copy of a job and of what lies beside it (rollback journal, write-ahead log) in a private
/// folder, for a job that has to be repaired before it can be read. The copy may be written to:
/// SQLite rolls the journal back in it. Folder and copy go at the end of the scope.
///
/// A journal can name a super-journal, the common journal of a transaction over several files,
/// which SQLite looks for and deletes after rolling back; a forged one could name any file. The
/// copied journal is therefore made to name none, and is rolled back like any other: no console
/// writes to two jobs at once.
class PrivateCopy {
 public:
  /// Copies at once.
  /// Failure: Error() says why; there is then nothing to be read. It is "busy" where somebody
  /// wrote to the job meanwhile.
  explicit PrivateCopy(const std::filesystem::path& job);

  const std::error_code& Error() const { return error_; }
  std::filesystem::path Path() const { return folder_.Path() / "job.sqlite"; }

 private:
  void Copy(const std::filesystem::path& job, const char* suffix);

  PrivateFolder folder_;
  std::error_code error_ = folder_.Error();
};

/// The path of the file that SQLite keeps beside a database: suffix "-wal", "-journal".
std::filesystem::path Beside(const std::filesystem::path& job, const char* suffix);

/// What the files of a job come to, in bytes; what a journal or log holds may be part of it as
/// well.
std::uintmax_t SizeOfAll(const std::filesystem::path& job);

}  // namespace kestrin::opening
