#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "base/runHost.h"
#include "jobstore/sqliteDefs.h"

namespace kestrin::jobstore {

/// The columns of a query's current row, by position. Lives as long as its query.
class Columns {
 public:
  Columns(sqliteDefs& library, std::int32_t statement) : library_(library), statement_(statement) {}

  std::int32_t Int(int column) const { return library_.linx_getInt(statement_, column); }
  double Double(int column) const { return library_.linx_getDouble(statement_, column); }

  /// Reads the column's text over `text`. An empty or NULL column leaves `text` as
  /// it was: whoever wants it empty then starts from an empty text.
  void Text(int column, std::string& text) const;

 private:
  sqliteDefs& library_;
  std::int32_t statement_;
};

/// An open job file, closed at the end of its scope. Opened anew by every
/// procedure that reads it; nothing is cached between two.
class Job {
 public:
  explicit Job(const std::string& path) : handle_(library_.linx_sqlite3_open(path)) {}

  /// The host, which must outlive the job, hears of every long step meanwhile.
  Job(const std::string& path, base::RunHost& host) : Job(path) {
    library_.CallDuringSteps(handle_, [&host] { host.YieldInsideStep(); });
  }
  ~Job() { library_.linx_sqlite3_close(handle_); }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;

  bool IsOpen() const { return handle_ >= 0; }

  /// The database handle; negative, the reason why it is not open.
  std::int32_t Handle() const { return handle_; }

  sqliteDefs& Library() { return library_; }

 private:
  sqliteDefs library_;
  std::int32_t handle_;
};

/// A prepared query of a job and its rows, finalized at the end of its scope;
/// the job must outlive it. Q names the query (jobstore/queries.h): its text, its
/// row type and the reader that takes the columns by position.
template <class Q>
class Query {
 public:
  using Row = typename Q::Row;

  /// Prepares the query; `numbers` are what its text asks for, if anything.
  template <class... Numbers>
  explicit Query(Job& job, const Numbers&... numbers) : library_(job.Library()) {
    const std::string text{Q::Text(numbers...)};
    const auto length = static_cast<std::int32_t>(text.size());
    handle_ = library_.linx_sqlite3_prepare(job.Handle(), text, length);
  }
  ~Query() { library_.linx_sqlite3_finalize(handle_); }
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  bool Prepared() const { return handle_ >= 0; }

  /// The statement handle; negative, the reason why it could not be prepared.
  std::int32_t Handle() const { return handle_; }

  /// Reads the next row over `row` and returns true; false when the rows have
  /// ended, for whatever reason, with `row` unchanged. Ended rows stay ended.
  bool Next(Row& row) {
    // Stepping on after the end would start the rows over.
    if (lastStep_ != sqliteDefs::kRowReady) return false;
    lastStep_ = library_.linx_sqlite3_step(handle_);
    if (lastStep_ != sqliteDefs::kRowReady) return false;
    Q::Read(Columns(library_, handle_), row);
    return true;
  }

  /// The library's result of the last step: kRowReady while there may be more
  /// (also before the first), kDone when the rows simply ended, else an error.
  std::int32_t LastStep() const { return lastStep_; }

 private:
  sqliteDefs& library_;
  std::int32_t handle_ = -1;
  std::int32_t lastStep_ = sqliteDefs::kRowReady;
};

/// The first row of a single-row query, read over `row`; false when there is none
/// or the query cannot be prepared.
template <class Q, class... Numbers>
bool ReadFirst(Job& job, typename Q::Row& row, const Numbers&... numbers) {
  Query<Q> query(job, numbers...);
  return query.Next(row);
}

}  // namespace kestrin::jobstore
