#include "jobstore/jobOpening.h"

#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "jobstore/jobHardening.h"
#include "jobstore/readOnlyVfs.h"
#include "jobstore/utf8Path.h"

namespace kestrin {
namespace fs = std::filesystem;
namespace {

/// How long a console that is just completing a transaction is waited for.
constexpr int kBusyMilliseconds = 1000;

/// The library's spelling of a path: UTF-8 everywhere.
std::string LibraryText(const fs::path& path) {
  const auto text = path.generic_u8string();
  return {text.begin(), text.end()};
}

/// A file URI of an absolute path. Every byte that is not plain is escaped, so '?',
/// '#' and '%' in a name stay part of it.
std::string ImmutableUri(const fs::path& path) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/:";
  constexpr std::string_view kHex = "0123456789ABCDEF";
  const std::string text = LibraryText(path);
  // An empty authority, then a path with its root: "C:/..." has none of its own.
  std::string uri = text.starts_with('/') ? "file://" : "file:///";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += {'%', kHex[byte >> 4], kHex[byte & 15]};
    }
  }
  return uri + "?immutable=1";
}

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
  return {.name = ImmutableUri(job), .flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI};
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

/// The file itself, links followed: journal and log lie beside that one. Empty when
/// there is no regular file (opening a pipe would wait for ever).
fs::path JobFile(const std::string& path) {
  std::error_code error;
  if (path.find('\0') != std::string::npos) return {};
  fs::path job = fs::canonical(PathOf(path), error);
  if (error || !fs::is_regular_file(job, error)) return {};
  return job;
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
  const fs::path job = JobFile(path);
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

}  // namespace kestrin
