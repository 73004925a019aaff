#include "tests/support/database.h"

#include <cmath>
#include <stdexcept>

namespace kestrin::test {
namespace {

/// A function of one number, which not every build of the library brings with it.
template <double (*function)(double)>
void AddFunction(sqlite3* database, const char* name) {
  sqlite3_create_function_v2(
      database, name, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
      [](sqlite3_context* context, int, sqlite3_value** values) {
        sqlite3_result_double(context, function(sqlite3_value_double(*values)));
      },
      nullptr, nullptr, nullptr);
}

double Sine(double radians) { return std::sin(radians); }
double Cosine(double radians) { return std::cos(radians); }

}  // namespace

Database::Database(const std::string& path, int flags, const char* layer) {
  if (sqlite3_open_v2(path.c_str(), &handle_, flags, layer) != SQLITE_OK) {
    sqlite3_close(handle_);
    throw std::runtime_error("cannot open " + path);
  }
  AddFunction<&Sine>(handle_, "sin");
  AddFunction<&Cosine>(handle_, "cos");
}

void Database::Fail(const std::string& what) {
  throw std::runtime_error(what + ": " + sqlite3_errmsg(handle_));
}

Database& Database::Execute(const std::string& sql) {
  if (Result(sql) != SQLITE_OK) Fail(sql);
  return *this;
}

int Database::Result(const std::string& sql) {
  return sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr);
}

void Database::Each(const std::string& sql, const std::function<void(sqlite3_stmt*)>& onRow) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(handle_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) Fail(sql);
  while (sqlite3_step(statement) == SQLITE_ROW) onRow(statement);
  if (sqlite3_finalize(statement) != SQLITE_OK) Fail(sql);
}

double Database::Number(const std::string& sql) {
  double answer = 0;
  bool first = true;
  Each(sql, [&](sqlite3_stmt* row) {
    if (first) answer = sqlite3_column_double(row, 0);
    first = false;
  });
  return answer;
}

double Ask(const std::string& jobPath, const std::string& sql) {
  return Database(jobPath, SQLITE_OPEN_READONLY).Number(sql);
}

std::string AllRows(const std::string& jobPath) {
  Database database(jobPath, SQLITE_OPEN_READONLY);
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

}  // namespace kestrin::test
