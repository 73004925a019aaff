#pragma once

#include <sqlite3.h>

#include <functional>
#include <string>

namespace kestrin::test {

/// A job as SQLite itself opens it: as a console does, or any other program.
class Database {
 public:
  /// Creates the file unless `flags` say otherwise.
  /// Failure: std::runtime_error, here and below.
  explicit Database(const std::string& path, int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                    const char* layer = nullptr);
  ~Database() { sqlite3_close(handle_); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  /// Runs statements.
  Database& Execute(const std::string& sql);

  /// The library's code for running them; no failure.
  int Result(const std::string& sql);

  /// Calls `onRow` for each row of a statement.
  void Each(const std::string& sql, const std::function<void(sqlite3_stmt*)>& onRow);

  /// The first column of the first row, as a number; 0 when there is no row.
  double Number(const std::string& sql);

  sqlite3* Handle() { return handle_; }

 private:
  [[noreturn]] void Fail(const std::string& what);

  sqlite3* handle_ = nullptr;
};

/// Database::Number of a job.
double Ask(const std::string& jobPath, const std::string& sql);

/// All rows of all tables, as text: what makes two jobs the same.
std::string AllRows(const std::string& jobPath);

}  // namespace kestrin::test
