#include "jobstore/opening/jobOpening.h"

#include <filesystem>
#include <fstream>
#include <string_view>
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

/// The parts of a database header that decide how it is opened.
struct Header {
  int result = SQLITE_OK;
  bool writeAhead = false;
};

Header ReadHeader(const fs::path& path) {
  constexpr std::string_view kMagic{"SQLite format 3\0", 16};
  constexpr std::size_t kReadVersion = 19;
  std::ifstream file(path, std::ios::binary);
  if (!file) return {SQLITE_CANTOPEN};
  char bytes[100];
  if (!file.read(bytes, sizeof bytes)) return {SQLITE_NOTADB};
  if (std::string_view(bytes, kMagic.size()) != kMagic) return {SQLITE_NOTADB};
  return {SQLITE_OK, bytes[kReadVersion] == 2};
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

/// Asking for a table's metadata makes the library read header and schema.
int ReadSchema(sqlite3* database) {
  return sqlite3_table_column_metadata(database, "main", "sqlite_master", nullptr, nullptr, nullptr,
                                       nullptr, nullptr, nullptr);
}

/// What the files of a database come to; what a journal or log holds may be part of
/// it as well.
std::uintmax_t SizeOfAll(const fs::path& job) {
  return SizeOf(job) + SizeOf(Beside(job, "-wal")) + SizeOf(Beside(job, "-journal"));
}

/// Opens one way and reads the schema; the result is the library's code with its
/// detail.
void Open(const Way& way, std::uintmax_t size, OpenedJob& opened) {
  sqlite3* database = nullptr;
  // One thread at a time uses a connection, so it needs no mutexes: they would be
  // taken for every column of every row.
  int code = sqlite3_open_v2(way.name.c_str(), &database, way.flags | SQLITE_OPEN_NOMUTEX, way.vfs);
  opened.budget = std::make_unique<WorkBudget>(size);
  opened.database.reset(database);
  if (code == SQLITE_OK) {
    opened.budget->Watch(database);
    code = SetUp(database, way);
  }
  if (code == SQLITE_OK) code = ReadSchema(database);
  opened.result =
      code == SQLITE_OK || database == nullptr ? code : sqlite3_extended_errcode(database);
  if (code != SQLITE_OK) opened.database.reset();
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

OpenedJob OpenAny(const fs::path& job, const Header& header) {
  const bool log = SizeOf(Beside(job, "-wal")) > 0;
  const bool atRest = header.writeAhead && !log;
  // The immutable way never looks for a journal.
  if (atRest && SizeOf(Beside(job, "-journal")) > 0) return OpenRepaired(job);
  OpenedJob opened;
  Open(log ? WithLog(job) : atRest ? Immutable(job) : InPlace(job), SizeOfAll(job), opened);
  if (opened.result == SQLITE_READONLY_ROLLBACK) return OpenRepaired(job);
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
  const Header header = ReadHeader(job);
  if (header.result != SQLITE_OK) {
    opened.result = header.result;
    return opened;
  }
  opened = OpenAny(job, header);
  constexpr int kPrimaryCode = 0xff;
  opened.result &= kPrimaryCode;
  return opened;
}

}  // namespace kestrin::opening
