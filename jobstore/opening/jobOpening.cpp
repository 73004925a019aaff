#include "jobstore/opening/jobOpening.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "jobstore/opening/immutableUri.h"
#include "jobstore/opening/jobFile.h"
#include "jobstore/opening/jobHardening.h"
#include "jobstore/opening/readOnlyVfs.h"

namespace kestrin::opening {
namespace fs = std::filesystem;
namespace {

/// How long a console that is just completing a transaction is waited for.
constexpr int kBusyMilliseconds = 1000;

/// Whether a file's header says that it is written ahead; what is no database may say so too.
bool IsWrittenAhead(const fs::path& path) {
  constexpr std::size_t kReadVersion = 19;
  char bytes[kReadVersion + 1] = {};
  std::ifstream(path, std::ios::binary).read(bytes, sizeof bytes);
  return bytes[kReadVersion] == 2;
}

int Failure(const std::error_code& error) {
  return error == std::errc::no_space_on_device ? SQLITE_FULL : SQLITE_IOERR;
}

struct Way {
  std::string name;
  int flags = SQLITE_OPEN_READONLY;
  const char* vfs = ReadOnlyVfs(FileLocks::kShared);
  const char* setUp = nullptr;
};

Way InPlace(const fs::path& job) { return {.name = LibraryText(job)}; }

Way Immutable(const fs::path& job) {
  return {.name = ImmutableUri(LibraryText(job)), .flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI};
}

/// The exclusive mode is what keeps the log's index in memory; without locks it
/// shuts nobody out.
Way WithLog(const fs::path& job) {
  return {.name = LibraryText(job),
          .vfs = ReadOnlyVfs(FileLocks::kNone),
          .setUp = "PRAGMA locking_mode=EXCLUSIVE"};
}

Way ForRepair(const fs::path& copy) {
  return {.name = LibraryText(copy), .flags = SQLITE_OPEN_READWRITE, .vfs = nullptr};
}

int SetUp(sqlite3* database, const Way& way) {
  sqlite3_busy_timeout(database, kBusyMilliseconds);
  int result = HardenConnection(database);
  if (result == SQLITE_OK && way.setUp != nullptr) {
    result = sqlite3_exec(database, way.setUp, nullptr, nullptr, nullptr);
  }
  return result != SQLITE_OK ? result : AllowSelectionsOnly(database);
}

/// Asking for a table's metadata makes the library read header and schema. The result
/// is its code with the detail.
int ReadSchema(sqlite3* database) {
  const int code = sqlite3_table_column_metadata(database, "main", "sqlite_master", nullptr,
                                                 nullptr, nullptr, nullptr, nullptr, nullptr);
  return code == SQLITE_OK ? code : sqlite3_extended_errcode(database);
}

/// Opens one way and reads the schema.
void Open(const Way& way, std::uintmax_t size, OpenedJob& opened) {
  sqlite3* database = nullptr;
  // One thread at a time uses a connection, so it needs no mutexes: they would be
  // taken for every column of every row.
  opened.result =
      sqlite3_open_v2(way.name.c_str(), &database, way.flags | SQLITE_OPEN_NOMUTEX, way.vfs);
  opened.budget = std::make_unique<WorkBudget>(size);
  opened.database.reset(database);
  if (opened.result == SQLITE_OK) {
    opened.budget->Watch(database);
    opened.result = SetUp(database, way);
  }
  if (opened.result == SQLITE_OK) opened.unreadable = ReadSchema(database);
  if (opened.result != SQLITE_OK || opened.unreadable != SQLITE_OK) opened.database.reset();
}

OpenedJob OpenRepaired(const fs::path& job) {
  OpenedJob opened;
  opened.copy = std::make_unique<PrivateCopy>(job);
  if (opened.copy->Error()) {
    opened.result = Failure(opened.copy->Error());
    return opened;
  }
  Open(ForRepair(opened.copy->Path()), SizeOfAll(opened.copy->Path()), opened);
  return opened;
}

OpenedJob OpenAny(const fs::path& job) {
  const bool log = SizeOf(Beside(job, "-wal")) > 0;
  const bool atRest = !log && IsWrittenAhead(job);
  // The immutable way never looks for a journal.
  if (atRest && SizeOf(Beside(job, "-journal")) > 0) return OpenRepaired(job);
  OpenedJob opened;
  Open(log ? WithLog(job) : atRest ? Immutable(job) : InPlace(job), SizeOfAll(job), opened);
  if (opened.unreadable == SQLITE_READONLY_ROLLBACK) return OpenRepaired(job);
  return opened;
}

}  // namespace

OpenedJob OpenJobFile(const std::string& path) {
  OpenedJob opened;
  // The system would take the path to end at a zero byte.
  const fs::path job = path.find('\0') == std::string::npos ? JobFile(path) : fs::path();
  if (job.empty()) {
    opened.result = SQLITE_CANTOPEN;
    return opened;
  }
  opened = OpenAny(job);
  constexpr int kPrimaryCode = 0xff;
  opened.unreadable &= kPrimaryCode;
  return opened;
}

}  // namespace kestrin::opening
