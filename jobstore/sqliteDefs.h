#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace kestrin::jobstore {

/// The operations through which every job file is read, over SQLite 3.
///
/// Databases and statements are 32-bit handles of this object; a negative handle
/// is a failure, and its value the library's result code made negative. An object
/// serves one thread at a time; two objects share no state. Whatever is still open
/// at destruction is closed.
///
/// A job is only ever read, and nothing is created or changed for it: the file and
/// the folder it lies in keep every byte, and no journal, write-ahead log or
/// shared-memory file appears beside it, while a write-ahead log that holds content
/// is read together with its job.
class sqliteDefs {
 public:
  /// linx_sqlite3_step's result when a row is ready. Any other value ends the rows.
  static constexpr std::int32_t kRowReady = 100;
  /// The result that ends the rows in good order; the others are errors.
  static constexpr std::int32_t kDone = 101;

  sqliteDefs();
  ~sqliteDefs();
  sqliteDefs(const sqliteDefs&) = delete;
  sqliteDefs& operator=(const sqliteDefs&) = delete;

  /// Opens a database file for reading. Negative when there is no such file, it
  /// cannot be read, or it is no database. Path in the system's 8-bit text.
  std::int32_t linx_sqlite3_open(const std::string& path);

  /// From now on `call` is called now and then while a statement of the database is
  /// at work inside linx_sqlite3_step. It must neither throw nor use this object.
  void CallDuringSteps(std::int32_t database, std::function<void()> call);

  /// Prepares the first statement in the text's first `length` characters. Only
  /// selections over the job's own tables can be prepared.
  std::int32_t linx_sqlite3_prepare(std::int32_t database, const std::string& sql,
                                    const std::int32_t& length);

  /// Steps to the next row: kRowReady, kDone, or the library's error code.
  std::int32_t linx_sqlite3_step(std::int32_t statement);

  /// The column's value in the current row; 0 for a column the result does not
  /// have, for NULL, and for a handle that is none.
  std::int32_t linx_getInt(std::int32_t statement, std::int32_t column);
  double linx_getDouble(std::int32_t statement, std::int32_t column);

  /// Length in bytes of the column's text; 0 where there is none.
  std::int32_t linx_getColSize(std::int32_t statement, std::int32_t column);

  /// Fills the front of the buffer with the column's text, at most buffer.size()
  /// bytes of it, unchanged. The result means nothing.
  std::int32_t linx_getText(std::int32_t statement, std::int32_t column, std::string& buffer);

  void linx_sqlite3_finalize(std::int32_t statement);

  /// Closes a database; its statements are finalized first.
  void linx_sqlite3_close(std::int32_t database);

 private:
  struct Tables;
  std::unique_ptr<Tables> tables_;
};

}  // namespace kestrin::jobstore
