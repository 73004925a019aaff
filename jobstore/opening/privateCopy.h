#pragma once

#include <filesystem>
#include <system_error>

namespace kestrin::opening {

/// A copy of a job and of what lies beside it (rollback journal, write-ahead log)
/// in a folder of its own that only this user can enter, for jobs that cannot be
/// read without being repaired first. Folder and copy go at the end of the scope.
class PrivateCopy {
 public:
  /// Copies at once; Error() says whether that worked.
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

/// The path of the file that SQLite keeps beside a database: suffix "-wal",
/// "-journal".
std::filesystem::path Beside(const std::filesystem::path& job, const char* suffix);

}  // namespace kestrin::opening
