#include "jobstore/sqliteDefs.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "jobstore/opening/jobOpening.h"
#include "jobstore/opening/sqliteHandles.h"

namespace kestrin::jobstore {
namespace {

/// Objects by handle: handle n lies at index n - 1, so none is 0 or negative.
/// Looked up for every column of every row.
template <class Object>
class HandleTable {
 public:
  std::int32_t Add(Object object) {
    objects_.push_back(std::move(object));
    return static_cast<std::int32_t>(objects_.size());
  }

  /// Null for a handle that is none, or no longer one.
  Object* Find(std::int32_t handle) {
    const std::size_t index = static_cast<std::size_t>(handle) - 1;
    return index < objects_.size() ? &objects_[index] : nullptr;
  }

  void Remove(std::int32_t handle) {
    Object* object = Find(handle);
    if (object == nullptr) return;
    // Destroyed as a whole, so that its parts go in the order they depend on.
    { [[maybe_unused]] const Object removed = std::exchange(*object, Object{}); }
    while (!objects_.empty() && !objects_.back()) objects_.pop_back();
  }

  std::int32_t Last() const { return static_cast<std::int32_t>(objects_.size()); }

 private:
  std::vector<Object> objects_;
};

struct Database {
  opening::OpenedJob job;
  explicit operator bool() const { return job.database != nullptr; }
};

}  // namespace

struct sqliteDefs::Tables {
  // Statements go before the databases they belong to.
  HandleTable<Database> databases;
  HandleTable<opening::StatementPtr> statements;

  const opening::OpenedJob* JobOf(std::int32_t handle) {
    const Database* database = databases.Find(handle);
    return database != nullptr && *database ? &database->job : nullptr;
  }
  sqlite3* DatabaseOf(std::int32_t handle) {
    const opening::OpenedJob* job = JobOf(handle);
    return job != nullptr ? job->database.get() : nullptr;
  }
  sqlite3_stmt* StatementOf(std::int32_t handle) {
    const opening::StatementPtr* statement = statements.Find(handle);
    return statement != nullptr ? statement->get() : nullptr;
  }
};

sqliteDefs::sqliteDefs() : tables_(std::make_unique<Tables>()) {}

sqliteDefs::~sqliteDefs() = default;

std::int32_t sqliteDefs::linx_sqlite3_open(const std::string& path) {
  Database database{opening::OpenJobFile(path)};
  if (!database) return -database.job.result;
  return tables_->databases.Add(std::move(database));
}

void sqliteDefs::CallDuringSteps(std::int32_t database, std::function<void()> call) {
  const opening::OpenedJob* job = tables_->JobOf(database);
  if (job != nullptr) job->budget->CallMeanwhile(std::move(call));
}

std::int32_t sqliteDefs::linx_sqlite3_prepare(std::int32_t database, const std::string& sql,
                                              const std::int32_t& length) {
  const opening::OpenedJob* job = tables_->JobOf(database);
  if (job == nullptr) return -SQLITE_MISUSE;
  job->budget->Renew();
  const auto size = static_cast<std::int32_t>(
      std::min(sql.size(), static_cast<std::size_t>(std::max(length, 0))));
  sqlite3_stmt* prepared = nullptr;
  const int result = sqlite3_prepare_v3(job->database.get(), sql.c_str(), size,
                                        SQLITE_PREPARE_NO_VTAB, &prepared, nullptr);
  opening::StatementPtr statement(prepared);
  if (result != SQLITE_OK) return -result;
  // A text without a statement in it prepares well, to nothing.
  if (statement == nullptr) return -SQLITE_ERROR;
  if (sqlite3_stmt_readonly(prepared) == 0) return -SQLITE_READONLY;
  return tables_->statements.Add(std::move(statement));
}

std::int32_t sqliteDefs::linx_sqlite3_step(std::int32_t statement) {
  sqlite3_stmt* open = tables_->StatementOf(statement);
  return open != nullptr ? sqlite3_step(open) : SQLITE_MISUSE;
}

// The library's own getters are safe for no statement, no row and no such column:
// they all read NULL then.

std::int32_t sqliteDefs::linx_getInt(std::int32_t statement, std::int32_t column) {
  return sqlite3_column_int(tables_->StatementOf(statement), column);
}

double sqliteDefs::linx_getDouble(std::int32_t statement, std::int32_t column) {
  return sqlite3_column_double(tables_->StatementOf(statement), column);
}

std::int32_t sqliteDefs::linx_getColSize(std::int32_t statement, std::int32_t column) {
  return sqlite3_column_bytes(tables_->StatementOf(statement), column);
}

std::int32_t sqliteDefs::linx_getText(std::int32_t statement, std::int32_t column,
                                      std::string& buffer) {
  sqlite3_stmt* open = tables_->StatementOf(statement);
  const unsigned char* text = sqlite3_column_text(open, column);
  const int size = sqlite3_column_bytes(open, column);
  if (text != nullptr && size > 0) {
    std::memcpy(buffer.data(), text, std::min(buffer.size(), static_cast<std::size_t>(size)));
  }
  return 0;
}

void sqliteDefs::linx_sqlite3_finalize(std::int32_t statement) {
  tables_->statements.Remove(statement);
}

void sqliteDefs::linx_sqlite3_close(std::int32_t database) {
  sqlite3* open = tables_->DatabaseOf(database);
  if (open == nullptr) return;
  for (std::int32_t handle = tables_->statements.Last(); handle > 0; --handle) {
    sqlite3_stmt* statement = tables_->StatementOf(handle);
    if (statement != nullptr && sqlite3_db_handle(statement) == open) {
      tables_->statements.Remove(handle);
    }
  }
  tables_->databases.Remove(database);
}

}  // namespace kestrin::jobstore
