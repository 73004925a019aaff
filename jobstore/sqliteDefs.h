#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "jobstore/opening/jobOpening.h"
#include "jobstore/opening/sqliteHandles.h"

/// The operations through which every job file is read, over SQLite 3. A job is only ever
/// read, and nothing is created or changed for it: the file and the folder it lies in keep
/// every byte, and no journal, write-ahead log or shared-memory file appears beside it,
/// while a write-ahead log that holds content is read together with its job.
///
/// An operation's result is a number: negative on failure, and then the library's result
/// code made negative, which is what messages show.

namespace kestrin::jobstore {

/// linx_sqlite3_step's result when a row is ready. Any other value ends the rows.
inline constexpr std::int32_t kRowReady = 100;
/// The result that ends the rows in good order; the others are errors.
inline constexpr std::int32_t kDone = 101;

/// A job's database. Closed at the end of its scope, which must lie behind those of its
/// statements. Serves one thread at a time; two share no state.
class Database {
 public:
  /// Opens a database file for reading, path in UTF-8; 0 on success. What is wrong inside the
  /// file, also that it is no database, shows when a statement is prepared.
  /// Failure: when there is no such file or it may not be read.
  std::int32_t linx_sqlite3_open(const std::string& path);

  /// From now on `call` is called now and then while a statement is at work inside
  /// linx_sqlite3_step. It must neither throw nor use this object.
  void CallDuringSteps(std::function<void()> call);

  /// Whether all that was read so far is one state of the job. A console may write while a job
  /// in write-ahead mode is read, which can mix rows from before with rows from after.
  bool IsOneState() const { return job_.IsOneState(); }

  /// The first error that a step of its statements ended with; kDone while there was none. Rows
  /// of a change table that are cut off by one are missing as much as GPS rows.
  std::int32_t FirstError() const { return firstError_; }

  /// From now on all statements together may take no more steps than else each of them, so that
  /// as many as a job asks for still come to an end. What goes beyond fails to step.
  // NOLINTNEXTLINE(readability-make-member-function-const): what steps may do changes.
  void ShareSteps() {
    if (job_.budget) job_.budget->Share();
  }

  /// The same as the end of the scope. Its statements must have been finalized before.
  void linx_sqlite3_close();

 private:
  friend class Statement;

  opening::OpenedJob job_;
  std::int32_t statements_ = 0;  // prepared so far
  std::int32_t firstError_ = kDone;
};

/// A selection over a job's own tables, and the row it has reached. Finalized at the end of
/// its scope, which must lie within that of its database.
class Statement {
 public:
  /// Prepares the first statement in the text's first `length` characters. A statement is
  /// numbered among those of its database from 1 on.
  /// Failure: for a database that is not open or is none, for a text without a statement,
  /// and for anything but a selection; the object then has no statement and yields no row.
  std::int32_t linx_sqlite3_prepare(Database& database, const std::string& sql,
                                    const std::int32_t& length);

  /// Steps to the next row: kRowReady, kDone, or the library's error code.
  std::int32_t linx_sqlite3_step() {
    const std::int32_t result = sqlite3_step(prepared_.get());
    if (result != kRowReady && result != kDone) KeepError(result);
    return result;
  }

  // The library's own getters are safe for no statement, no row and no such column: they
  // all read NULL then.

  /// The column's value in the current row; 0 for NULL and for a column the result does
  /// not have.
  std::int32_t linx_getInt(std::int32_t column) const {
    return sqlite3_column_int(prepared_.get(), column);
  }
  double linx_getDouble(std::int32_t column) const {
    return sqlite3_column_double(prepared_.get(), column);
  }

  /// Length in bytes of the column's text; 0 where there is none.
  std::int32_t linx_getColSize(std::int32_t column) const {
    return sqlite3_column_bytes(prepared_.get(), column);
  }

  /// What the column's value is in the current row: SQLITE_NULL, SQLITE_TEXT and so on. To be
  /// asked before the value.
  std::int32_t linx_getColType(std::int32_t column) const {
    return sqlite3_column_type(prepared_.get(), column);
  }

  /// Whether a comparison in a query's text takes the column's values for texts, and a number
  /// beside them for its digits: by the type that the job declares the column with.
  bool ComparesAsText(std::int32_t column) const;

  /// Fills the front of the buffer with the column's text, at most buffer.size() bytes of
  /// it, unchanged.
  void linx_getText(std::int32_t column, std::string& buffer) const;

  void linx_sqlite3_finalize() { prepared_.reset(); }

 private:
  void KeepError(std::int32_t result) const;

  Database* database_ = nullptr;  // of what is prepared
  opening::StatementPtr prepared_;
};

/// Reads a column's text over `text`. An empty or NULL column leaves `text` as it was:
/// whoever wants it empty then starts from an empty text.
void ReadText(const Statement& row, std::int32_t column, std::string& text);

}  // namespace kestrin::jobstore
