#pragma once

#include <cstdint>
#include <string>

#include "base/runHost.h"
#include "jobstore/sqliteDefs.h"

namespace kestrin::jobstore {

/// An open job file, closed at the end of its scope. Opened anew by every procedure that
/// reads it; nothing is cached between two.
class Job {
 public:
  explicit Job(const std::string& path) : result_(database_.linx_sqlite3_open(path)) {}

  /// The host, which must outlive the job, hears of every long step meanwhile.
  Job(const std::string& path, base::RunHost& host) : Job(path) {
    database_.CallDuringSteps([&host] { host.YieldInsideStep(); });
  }

  bool IsOpen() const { return result_ >= 0; }

  /// Of the opening; negative, the reason why the job is not open.
  std::int32_t Result() const { return result_; }

  Database& Library() { return database_; }
  const Database& Library() const { return database_; }

 private:
  Database database_;
  std::int32_t result_;
};

/// A prepared query of a job and its rows; the job must outlive it. Q names the query
/// (jobstore/queries.h, jobstore/epochs.h): its text, its row type and its reader.
template <class Q>
class Query {
 public:
  using Row = typename Q::Row;

  /// Prepares the query; `numbers` are what its text asks for, if anything.
  template <class... Numbers>
  explicit Query(Job& job, const Numbers&... numbers) {
    const std::string text{Q::Text(numbers...)};
    result_ = statement_.linx_sqlite3_prepare(job.Library(), text,
                                              static_cast<std::int32_t>(text.size()));
  }

  bool Prepared() const { return result_ >= 0; }

  /// Of the preparing: the statement's number, or negative, the reason why there is none.
  std::int32_t Result() const { return result_; }

  /// Whether comparisons in its text take the column's values for texts.
  bool ComparesAsText(std::int32_t column) const { return statement_.ComparesAsText(column); }

  /// Reads the next row over `row` and returns true; false when the rows have ended, for
  /// whatever reason, with `row` unchanged. Ended rows stay ended.
  bool Next(Row& row) {
    // Stepping on after the end would start the rows over.
    if (lastStep_ != kRowReady) return false;
    lastStep_ = statement_.linx_sqlite3_step();
    if (lastStep_ != kRowReady) return false;
    Q::Read(statement_, row);
    return true;
  }

  /// The library's result of the last step: kRowReady while there may be more (also before
  /// the first), kDone when the rows simply ended, else an error.
  std::int32_t LastStep() const { return lastStep_; }

 private:
  Statement statement_;
  std::int32_t result_ = -1;
  std::int32_t lastStep_ = kRowReady;
};

/// The first row of a single-row query, read over `row`; false when there is none or the
/// query cannot be prepared.
template <class Q, class... Numbers>
bool ReadFirst(Job& job, typename Q::Row& row, const Numbers&... numbers) {
  Query<Q> query(job, numbers...);
  return query.Next(row);
}

}  // namespace kestrin::jobstore
