// What reading a job costs above the library itself: the widest query over all rows.

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tools/sample/jobSchema.h"

namespace kestrin {
namespace {

/// A job of as many epochs as asked for, removed at the end of the scope.
class BenchJob {
 public:
  explicit BenchJob(std::int64_t rows)
      : path_((std::filesystem::temp_directory_path() /
               ("kestrin-bench-" + std::to_string(getpid()) + ".sqlite"))
                  .string()) {
    std::filesystem::remove(path_);
    sqlite3* database = nullptr;
    sqlite3_open(path_.c_str(), &database);
    const std::string fill =
        "WITH RECURSIVE i(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM i WHERE "
        "n < " +
        std::to_string(rows) +
        ") INSERT INTO GpsDataTable SELECT "
        "1042, n * 100, n * 0.37, n * 0.73, 1.5, 0.1, 0.01, 0.02, 2.3, 8192, "
        "65535 FROM i";
    for (const std::string& sql :
         {std::string("PRAGMA synchronous=OFF"), kestrin::sample::JobSchema(), fill}) {
      sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
    }
    sqlite3_close(database);
  }
  ~BenchJob() { std::filesystem::remove(path_); }
  BenchJob(const BenchJob&) = delete;
  BenchJob& operator=(const BenchJob&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

/// The floor: the library's own calls, column by column.
void ScanWithLibrary(benchmark::State& state) {
  const BenchJob job(state.range(0));
  for ([[maybe_unused]] const auto iteration : state) {
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    sqlite3_open_v2(job.Path().c_str(), &database, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX,
                    nullptr);
    sqlite3_prepare_v2(database, std::string(kestrin::jobstore::PointEpochs::Text()).c_str(), -1,
                       &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      for (const int column : {0, 1, 9, 10}) {
        benchmark::DoNotOptimize(sqlite3_column_int(statement, column));
      }
      for (int column = 2; column < 9; ++column) {
        benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
      }
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ScanWithQuery(benchmark::State& state) {
  const BenchJob file(state.range(0));
  for ([[maybe_unused]] const auto iteration : state) {
    kestrin::jobstore::Job job(file.Path());
    kestrin::jobstore::Query<kestrin::jobstore::PointEpochs> epochs(job);
    kestrin::jobstore::EpochRow row;
    while (epochs.Next(row)) benchmark::DoNotOptimize(row);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(ScanWithLibrary)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ScanWithQuery)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kestrin

BENCHMARK_MAIN();
