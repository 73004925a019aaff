#include "fuzz/realJobs.h"

#include <cstdint>

#include "base/byteOrder.h"
#include "tests/support/database.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/jobSchema.h"

namespace kestrin::fuzz {
namespace {

constexpr std::size_t kWord = 4;

std::uint32_t BigAt(const std::string& bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = at; i < at + kWord; ++i) {
    number = number << 8 | static_cast<unsigned char>(bytes[i]);
  }
  return number;
}

std::uint32_t LittleAt(const std::string& bytes, std::size_t at) {
  return __builtin_bswap32(BigAt(bytes, at));
}

/// The size of a page, as a file's header says it; 0 where none can be of that size.
std::size_t PageSize(const std::string& bytes, std::size_t at) {
  const std::size_t size = BigAt(bytes, at);
  return size >= 512 && size <= 65536 ? size : 0;
}

/// The two sums of a log, over one piece after the other.
class LogSums {
 public:
  explicit LogSums(std::string& log) : log_(log), big_((log[3] & 1) != 0) {}

  void Add(std::size_t from, std::size_t size) {
    for (std::size_t at = from; at < from + size; at += 2 * kWord) {
      first_ += Word(at) + second_;
      second_ += Word(at + kWord) + first_;
    }
  }
  void Put(std::size_t at) { base::PutBe32(base::PutBe32(&log_[at], first_), second_); }

 private:
  std::uint32_t Word(std::size_t at) const { return big_ ? BigAt(log_, at) : LittleAt(log_, at); }

  std::string& log_;
  bool big_;
  std::uint32_t first_ = 0;
  std::uint32_t second_ = 0;
};

void MendLog(std::string& log) {
  constexpr std::size_t kHeader = 32;
  constexpr std::size_t kFrameHeader = 24;
  if (log.size() < kHeader) return;
  LogSums sums(log);
  sums.Add(0, kFrameHeader);
  sums.Put(kFrameHeader);
  const std::size_t page = PageSize(log, 8) & ~std::size_t{7};
  if (page == 0) return;
  for (std::size_t at = kHeader; at + kFrameHeader + page <= log.size();
       at += kFrameHeader + page) {
    log.replace(at + 8, 8, log, 16, 8);
    sums.Add(at, 8);
    sums.Add(at + kFrameHeader, page);
    sums.Put(at + 16);
  }
}

void MendJournal(std::string& journal) {
  if (journal.size() < 28) return;
  const std::size_t sector = PageSize(journal, 20);
  const std::size_t page = PageSize(journal, 24);
  if (sector == 0 || page == 0) return;
  for (std::size_t at = sector; at + page + 8 <= journal.size(); at += page + 8) {
    std::uint32_t sum = BigAt(journal, 12);
    for (std::size_t i = page - 200; i < page; i -= 200) {
      sum += static_cast<unsigned char>(journal[at + 4 + i]);
    }
    base::PutBe32(&journal[at + 4 + page], sum);
  }
}

/// A ride of some rows, with a change in each table.
const char* const kContent =
    "WITH RECURSIVE i(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM i WHERE n < 24) "
    "INSERT INTO GpsDataTable SELECT 100, n * 200, n * 2 + 3 * sin(n / 5.0), n % 20, 1, n / 9.0, "
    "0, 0, 2, 8192 + (n % 11 = 1) * 16384, n % 8 FROM i;"
    "INSERT INTO ReferenceLocationChangeTable VALUES(100, 1, 0.7, -1.5, 9), (100, 2000, 0.70001, "
    "-1.5, 9);"
    "INSERT INTO ImplChangeTable(gpsWeek, gpsMsec, implName, width0, width1, width2) VALUES(100, "
    "1, 'a', 3, 2, -1);"
    "INSERT INTO AsAppliedDesRateChangeTable VALUES(100, 1, 1, 2, 3), (100, 2400, 2, 2, 3);"
    "INSERT INTO AsAppliedActRateChangeTable VALUES(100, 1, 1, 2, 3), (100, 3000, 2, 2, 3);"
    "INSERT INTO AsAppliedProductChangeTable VALUES(100, 1, 'a', 'b', hex(zeroblob(400)));"
    "INSERT INTO VersionChangeTable VALUES(100, 1, '3.2.8-1')";

class Console {
 public:
  /// Small pages: the fewer the bytes, the more a change to one of them means.
  explicit Console(const std::string& set) {
    database_.Execute("PRAGMA page_size=512; PRAGMA cache_size=3; " + set);
    database_.Execute(sample::JobSchema()).Execute(kContent);
  }

  RealJob After(const std::string& sql, const std::string& suffix = "") {
    database_.Execute(sql);
    return {test::FileBytes(path_), suffix, suffix.empty() ? "" : test::FileBytes(path_ + suffix)};
  }

 private:
  test::TempFolder folder_;
  std::string path_ = folder_ / "job.sqlite";
  test::Database database_{path_};
};

}  // namespace

std::vector<RealJob> RealJobs() {
  Console narrow("");
  Console wide("PRAGMA encoding='UTF-16'");
  return {narrow.After(""), wide.After("CREATE INDEX keys ON GpsDataTable(gpsWeek, gpsMsec)"),
          narrow.After("BEGIN; UPDATE GpsDataTable SET speed=1", "-journal"),
          narrow.After("ROLLBACK; PRAGMA journal_mode=WAL"),
          narrow.After("UPDATE VersionChangeTable SET sqlite_ver='3.2.9'; "
                       "UPDATE GpsDataTable SET speed=3 WHERE gpsMsec > 3000",
                       "-wal")};
}

void MendSums(RealJob& job) {
  if (job.suffix == "-wal") MendLog(job.beside);
  if (job.suffix == "-journal") MendJournal(job.beside);
}

}  // namespace kestrin::fuzz
