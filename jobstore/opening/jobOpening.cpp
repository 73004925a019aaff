#include "jobstore/opening/jobOpening.h"

#include <filesystem>
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
/// Read by the library's own handle: on POSIX systems, whoever closes a file that was opened
/// apart gives up every lock that the process has on it, those of other connections too.
bool IsWrittenAhead(sqlite3* database) {
  constexpr sqlite3_int64 kReadVersion = 19;
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  char version = 0;
  if (file == nullptr || file->pMethods == nullptr) return false;
  return file->pMethods->xRead(file, &version, 1, kReadVersion) == SQLITE_OK && version == 2;
}

int Failure(const std::error_code& error) {
  if (error == std::errc::device_or_resource_busy) return SQLITE_BUSY;
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
  return result;
}

/// From the first statement on, all are one transaction: none of them sees what a console
/// writes between two.
int BeginReading(sqlite3* database) {
  const int result = sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr);
  return result != SQLITE_OK ? result : AllowSelectionsOnly(database);
}

/// Asking for a table's metadata makes the library read header and schema. The result
/// is its code with the detail.
int ReadSchema(sqlite3* database) {
  const int code = sqlite3_table_column_metadata(database, "main", "sqlite_master", nullptr,
                                                 nullptr, nullptr, nullptr, nullptr, nullptr);
  return code == SQLITE_OK ? code : sqlite3_extended_errcode(database);
}

void Connect(const Way& way, OpenedJob& opened) {
  sqlite3* database = nullptr;
  // One thread at a time uses a connection, so it needs no mutexes: they would be
  // taken for every column of every row.
  opened.result =
      sqlite3_open_v2(way.name.c_str(), &database, way.flags | SQLITE_OPEN_NOMUTEX, way.vfs);
  opened.database.reset(database);
}

/// Reads the schema of what was connected one way.
void Begin(const Way& way, std::uintmax_t size, OpenedJob& opened) {
  sqlite3* const database = opened.database.get();
  opened.budget = std::make_unique<WorkBudget>(size);
  if (opened.result == SQLITE_OK) {
    opened.budget->Watch(database);
    opened.result = SetUp(database, way);
  }
  if (opened.result == SQLITE_OK) opened.unreadable = ReadSchema(database);
  if (opened.result == SQLITE_OK && opened.unreadable == SQLITE_OK) {
    opened.result = BeginReading(database);
  }
  if (opened.result != SQLITE_OK || opened.unreadable != SQLITE_OK) opened.database.reset();
}

void Open(const Way& way, std::uintmax_t size, OpenedJob& opened) {
  Connect(way, opened);
  Begin(way, size, opened);
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
  OpenedJob opened;
  const bool log = SizeOf(Beside(job, "-wal")) > 0;
  if (!log) Connect(InPlace(job), opened);
  if (!log && !IsWrittenAhead(opened.database.get())) {
    Begin(InPlace(job), SizeOfAll(job), opened);
  } else {
    // The immutable way never looks for a journal.
    if (!log && SizeOf(Beside(job, "-journal")) > 0) return OpenRepaired(job);
    opened.unlocked = {job, MarksOf(job)};
    Open(log ? WithLog(job) : Immutable(job), SizeOfAll(job), opened);
  }
  if (opened.unreadable == SQLITE_READONLY_ROLLBACK) return OpenRepaired(job);
  // What was half written looks like damage.
  if (opened.unreadable != SQLITE_OK && !opened.IsOneState()) opened.unreadable = SQLITE_BUSY;
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
