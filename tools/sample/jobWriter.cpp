#include "tools/sample/jobWriter.h"

#include <sqlite3.h>

#include <cstdio>
#include <utility>

#include "base/angles.h"
#include "jobstore/opening/sqliteHandles.h"
#include "tools/sample/jobSchema.h"
#include "tools/sample/sampleError.h"

namespace kestrin::sample {
namespace {

[[noreturn]] void Fail(sqlite3* database) { throw SampleError(sqlite3_errmsg(database)); }

void Execute(sqlite3* database, const std::string& sql) {
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(database);
}

/// A prepared insertion; values are given in the order of the columns.
class Insertion {
 public:
  Insertion(sqlite3* database, const std::string& table, int columns) : database_(database) {
    std::string sql = "INSERT INTO " + table + " VALUES (?";
    for (int i = 1; i < columns; ++i) sql += ",?";
    sql += ")";
    if (sqlite3_prepare_v2(database, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
      Fail(database);
    }
  }
  ~Insertion() { sqlite3_finalize(statement_); }
  Insertion(const Insertion&) = delete;
  Insertion& operator=(const Insertion&) = delete;

  Insertion& Add(std::int32_t value) {
    sqlite3_bind_int(statement_, ++bound_, value);
    return *this;
  }
  Insertion& Add(double value) {
    sqlite3_bind_double(statement_, ++bound_, value);
    return *this;
  }
  Insertion& Add(const std::string& value) {
    sqlite3_bind_text(statement_, ++bound_, value.data(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
    return *this;
  }
  Insertion& Add(jobstore::GpsKey time) { return Add(time.gpsWeek).Add(time.gpsMsec); }

  void Insert() {
    bound_ = 0;
    if (sqlite3_step(statement_) != SQLITE_DONE) Fail(database_);
    sqlite3_reset(statement_);
  }

 private:
  sqlite3* database_;
  sqlite3_stmt* statement_ = nullptr;
  int bound_ = 0;
};

/// A new database, closed at the end of its scope, also when setting it up fails.
class Connection {
 public:
  explicit Connection(const std::string& path) {
    // SQLite alone would write into whatever is there already.
    std::FILE* created = std::fopen(path.c_str(), "wbx");
    if (created == nullptr || std::fclose(created) != 0) throw SampleError("cannot be created");
    sqlite3* opened = nullptr;
    const int result = sqlite3_open(path.c_str(), &opened);
    database_.reset(opened);
    if (result != SQLITE_OK) Fail(opened);
    Execute(opened, "PRAGMA synchronous=OFF");
    Execute(opened, "PRAGMA journal_mode=MEMORY");
    Execute(opened, JobSchema());
    Execute(opened, "BEGIN");
  }

  sqlite3* Get() const { return database_.get(); }

 private:
  opening::DatabasePtr database_;
};

}  // namespace

struct JobWriter::State {
  explicit State(const std::string& path) : connection(path) {}

  Connection connection;
  Insertion version{connection.Get(), "VersionChangeTable", 3};
  Insertion reference{connection.Get(), "ReferenceLocationChangeTable", 5};
  Insertion implement{connection.Get(), "ImplChangeTable", 4 + 4 * jobstore::kSectionSlots};
  Insertion desired{connection.Get(), "AsAppliedDesRateChangeTable", 5};
  Insertion actual{connection.Get(), "AsAppliedActRateChangeTable", 5};
  Insertion products{connection.Get(), "AsAppliedProductChangeTable", 5};
  Insertion epoch{connection.Get(), "GpsDataTable", 11};
};

JobWriter::JobWriter(const std::string& path) : state_(std::make_unique<State>(path)) {}
JobWriter::~JobWriter() = default;

void JobWriter::Version(jobstore::GpsKey time, const std::string& text) {
  state_->version.Add(time).Add(text).Insert();
}

void JobWriter::Reference(const jobstore::ReferenceWithAltitudeRow& row) {
  state_->reference.Add(row.time)
      .Add(row.latitude * base::kRadiansPerDegree)
      .Add(row.longitude * base::kRadiansPerDegree)
      .Add(row.altitude)
      .Insert();
}

void JobWriter::Implement(const jobstore::ImplementRow& row) {
  Insertion& insertion = state_->implement.Add(row.time).Add(row.name).Add(row.number);
  for (const jobstore::Section& section : row.sections) {
    insertion.Add(section.width).Add(section.xOffset).Add(section.yOffset).Add(section.zOffset);
  }
  insertion.Insert();
}

void JobWriter::DesiredRates(const jobstore::RatesRow& row) {
  state_->desired.Add(row.time);
  for (const double rate : row.rates) state_->desired.Add(rate);
  state_->desired.Insert();
}

void JobWriter::ActualRates(const jobstore::RatesRow& row) {
  state_->actual.Add(row.time);
  for (const double rate : row.rates) state_->actual.Add(rate);
  state_->actual.Insert();
}

void JobWriter::Products(const jobstore::ProductsRow& row) {
  state_->products.Add(row.time);
  for (const std::string& name : row.names) state_->products.Add(name);
  state_->products.Insert();
}

void JobWriter::Epoch(const jobstore::EpochRow& row) {
  state_->epoch.Add(row.time)
      .Add(row.east)
      .Add(row.north)
      .Add(row.down)
      .Add(row.yaw)
      .Add(row.pitch)
      .Add(row.roll)
      .Add(row.speed)
      .Add(row.type)
      .Add(row.boomStatus)
      .Insert();
}

void JobWriter::Commit() { Execute(state_->connection.Get(), "COMMIT"); }

}  // namespace kestrin::sample
