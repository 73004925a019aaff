#pragma once

#include <benchmark/benchmark.h>
#include <proj.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/silentHost.h"

/// What the exports and previews are measured against: the same rows through SQLite
/// and as many points through PROJ, each by the shortest way there is.

namespace kestrin::bench {

/// A job file by SQLite alone: made row by row of a benchmark's own, and scanned.
class Database {
 public:
  explicit Database(const std::string& path) {
    Check(sqlite3_open(path.c_str(), &database_) == SQLITE_OK);
  }
  ~Database() { sqlite3_close(database_); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  sqlite3* Handle() { return database_; }

  void Execute(const std::string& sql) {
    Check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
  }

  /// Reads every column of a query's rows, or of its first row: the time key and the
  /// columns named as integers, the others as doubles.
  void Scan(std::string_view text, const std::vector<int>& integers = {},
            bool firstRowOnly = false) {
    sqlite3_stmt* rows = nullptr;
    Check(sqlite3_prepare_v2(database_, text.data(), static_cast<int>(text.size()), &rows,
                             nullptr) == SQLITE_OK);
    const int columns = sqlite3_column_count(rows);
    while (sqlite3_step(rows) == SQLITE_ROW) {
      for (int column = 0; column < columns; ++column) {
        if (column < 2 || std::find(integers.begin(), integers.end(), column) != integers.end()) {
          benchmark::DoNotOptimize(sqlite3_column_int(rows, column));
        } else {
          benchmark::DoNotOptimize(sqlite3_column_double(rows, column));
        }
      }
      if (firstRowOnly) break;
    }
    sqlite3_finalize(rows);
  }

 private:
  void Check(bool good) const {
    if (!good) throw std::runtime_error(sqlite3_errmsg(database_));
  }

  sqlite3* database_ = nullptr;
};

/// So many points from the plane to degrees, by one PROJ object.
inline void ProjectPoints(std::int64_t points) {
  PJ_CONTEXT* context = proj_context_create();
  PJ* utm = proj_create(context, "+proj=utm +zone=15 +ellps=GRS80");
  for (std::int64_t i = 0; i < points; ++i) {
    const double east = 460'000 + static_cast<double>(i % 1000);
    benchmark::DoNotOptimize(proj_trans(utm, PJ_INV, proj_coord(east, 5'010'000, 1, 0)));
  }
  proj_destroy(utm);
  proj_context_destroy(context);
}

}  // namespace kestrin::bench
