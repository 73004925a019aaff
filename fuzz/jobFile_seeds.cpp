// jobFile_seeds FOLDER: writes small jobs, in the states a console leaves them in,
// as inputs for jobFile_fuzz to start from.

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "tools/sample/jobSchema.h"

namespace kestrin {
namespace {

namespace fs = std::filesystem;

void Execute(sqlite3* database, const std::string& sql) {
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sql + ": " + sqlite3_errmsg(database));
  }
}

std::string Bytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string Rows(const std::string& count) {
  return "WITH RECURSIVE i(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM i WHERE n < " + count +
         ") INSERT INTO GpsDataTable SELECT 100, n, n, n, n, n, n, n, n, 8192 + n % 2 * 16384, n "
         "FROM i";
}

sqlite3* MakeDraft(const fs::path& path) {
  sqlite3* database = nullptr;
  fs::remove(path);
  if (sqlite3_open(path.string().c_str(), &database) != SQLITE_OK) {
    throw std::runtime_error("cannot create " + path.string());
  }
  // Small pages: the fewer the bytes, the more a change to one of them means.
  Execute(database, "PRAGMA page_size=512; PRAGMA cache_size=3");
  Execute(database, sample::JobSchema());
  Execute(database, Rows("60"));
  Execute(database,
          "INSERT INTO ReferenceLocationChangeTable VALUES(100, 1, 0.7, -1.5, 9);"
          "INSERT INTO ImplChangeTable(gpsWeek, gpsMsec, implName, width0) VALUES(100, 1, 'a', 3);"
          "INSERT INTO AsAppliedDesRateChangeTable VALUES(100, 1, 1, 2, 3);"
          "INSERT INTO AsAppliedActRateChangeTable VALUES(100, 1, 1, 2, 3);"
          "INSERT INTO AsAppliedProductChangeTable VALUES(100, 1, 'a', 'b', 'c');"
          "INSERT INTO VersionChangeTable VALUES(100, 1, '3.2.8-1')");
  return database;
}

/// One input: the job and, when `suffix` names it, the file beside it.
void WriteSeed(const fs::path& seed, const fs::path& job, const std::string& suffix) {
  std::ofstream out(seed, std::ios::binary);
  out << Bytes(job);
  if (suffix.empty()) return;
  const std::string beside = Bytes(job.string() + suffix);
  out << beside;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    out.put(static_cast<char>(beside.size() >> shift & 0xff));
  }
  out << suffix;
}

void MakeSeeds(const fs::path& folder) {
  fs::create_directories(folder);
  const fs::path draft = fs::temp_directory_path() / "kestrin-seed.sqlite";
  sqlite3* database = MakeDraft(draft);
  WriteSeed(folder / "atRest", draft, "");
  Execute(database, "BEGIN; UPDATE GpsDataTable SET speed=1");
  WriteSeed(folder / "cutOff", draft, "-journal");
  Execute(database, "ROLLBACK; PRAGMA journal_mode=WAL");
  WriteSeed(folder / "writeAhead", draft, "");
  Execute(database, "UPDATE VersionChangeTable SET sqlite_ver='3.2.9'");
  WriteSeed(folder / "writeAheadLog", draft, "-wal");
  sqlite3_close(database);
  fs::remove(draft);
}

}  // namespace
}  // namespace kestrin

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: jobFile_seeds FOLDER\n", stderr);
    return 2;
  }
  try {
    kestrin::MakeSeeds(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
