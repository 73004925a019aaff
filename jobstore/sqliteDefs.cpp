#include "jobstore/sqliteDefs.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace kestrin {

struct sqliteDefs::Tables {
  std::vector<sqlite3*> databases;
  std::vector<sqlite3_stmt*> statements;

  sqlite3* Database(std::int32_t handle) const {
    return handle > 0 && static_cast<std::size_t>(handle) <= databases.size()
               ? databases[static_cast<std::size_t>(handle) - 1]
               : nullptr;
  }
  sqlite3_stmt* Statement(std::int32_t handle) const {
    return handle > 0 && static_cast<std::size_t>(handle) <= statements.size()
               ? statements[static_cast<std::size_t>(handle) - 1]
               : nullptr;
  }
};

sqliteDefs::sqliteDefs() : tables_(std::make_unique<Tables>()) {}

sqliteDefs::~sqliteDefs() {
  for (auto* statement : tables_->statements) sqlite3_finalize(statement);
  for (auto* database : tables_->databases) sqlite3_close(database);
}

std::int32_t sqliteDefs::linx_sqlite3_open(const std::string& path) {
  sqlite3* database = nullptr;
  const int result =
      sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READONLY, nullptr);
  if (result != SQLITE_OK) {
    sqlite3_close(database);
    return -result;
  }
  tables_->databases.push_back(database);
  return static_cast<std::int32_t>(tables_->databases.size());
}

std::int32_t sqliteDefs::linx_sqlite3_prepare(std::int32_t database, const std::string& sql,
                                              const std::int32_t& length) {
  sqlite3_stmt* statement = nullptr;
  const int result =
      sqlite3_prepare_v2(tables_->Database(database), sql.c_str(), length, &statement, nullptr);
  if (result != SQLITE_OK || statement == nullptr) return result != SQLITE_OK ? -result : -1;
  tables_->statements.push_back(statement);
  return static_cast<std::int32_t>(tables_->statements.size());
}

std::int32_t sqliteDefs::linx_sqlite3_step(std::int32_t statement) {
  return sqlite3_step(tables_->Statement(statement));
}

std::int32_t sqliteDefs::linx_getInt(std::int32_t statement, std::int32_t column) {
  return sqlite3_column_int(tables_->Statement(statement), column);
}

double sqliteDefs::linx_getDouble(std::int32_t statement, std::int32_t column) {
  return sqlite3_column_double(tables_->Statement(statement), column);
}

std::int32_t sqliteDefs::linx_getColSize(std::int32_t statement, std::int32_t column) {
  return sqlite3_column_bytes(tables_->Statement(statement), column);
}

std::int32_t sqliteDefs::linx_getText(std::int32_t statement, std::int32_t column,
                                      std::string& buffer) {
  const unsigned char* text = sqlite3_column_text(tables_->Statement(statement), column);
  const int size = sqlite3_column_bytes(tables_->Statement(statement), column);
  if (text != nullptr) {
    std::memcpy(buffer.data(), text, std::min(buffer.size(), static_cast<std::size_t>(size)));
  }
  return 0;
}

void sqliteDefs::linx_sqlite3_finalize(std::int32_t statement) {
  if (sqlite3_stmt* open = tables_->Statement(statement)) {
    sqlite3_finalize(open);
    tables_->statements[static_cast<std::size_t>(statement) - 1] = nullptr;
  }
}

void sqliteDefs::linx_sqlite3_close(std::int32_t database) {
  if (sqlite3* open = tables_->Database(database)) {
    sqlite3_close(open);
    tables_->databases[static_cast<std::size_t>(database) - 1] = nullptr;
  }
}

}  // namespace kestrin
