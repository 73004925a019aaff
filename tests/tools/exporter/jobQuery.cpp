#include "tests/tools/exporter/jobQuery.h"

#include <sqlite3.h>

#include <stdexcept>

namespace kestrin::test {
namespace {

class Database {
 public:
  explicit Database(const std::string& path) {
    if (sqlite3_open_v2(path.c_str(), &database_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
      throw std::runtime_error("cannot open " + path);
    }
  }
  ~Database() { sqlite3_close(database_); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void Execute(const std::string& sql) {
    if (sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sql + ": " + sqlite3_errmsg(database_));
    }
  }

  template <class OnRow>
  void Each(const std::string& sql, OnRow onRow) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sql + ": " + sqlite3_errmsg(database_));
    }
    while (sqlite3_step(statement) == SQLITE_ROW) onRow(statement);
    sqlite3_finalize(statement);
  }

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace

double Ask(const std::string& jobPath, const std::string& sql) {
  double answer = 0;
  bool first = true;
  Database(jobPath).Each(sql, [&](sqlite3_stmt* row) {
    if (first) answer = sqlite3_column_double(row, 0);
    first = false;
  });
  return answer;
}

std::string AllRows(const std::string& jobPath) {
  Database database(jobPath);
  std::string rows;
  database.Each("SELECT name FROM sqlite_master ORDER BY name", [&](sqlite3_stmt* table) {
    const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(table, 0));
    rows += name + "\n";
    database.Each("SELECT * FROM " + name, [&](sqlite3_stmt* row) {
      for (int i = 0; i < sqlite3_column_count(row); ++i) {
        const auto* text = sqlite3_column_text(row, i);
        rows += text != nullptr ? reinterpret_cast<const char*>(text) : "NULL";
        rows += '|';
      }
      rows += '\n';
    });
  });
  return rows;
}

void Change(const std::string& jobPath, const std::string& sql) { Database(jobPath).Execute(sql); }

}  // namespace kestrin::test
