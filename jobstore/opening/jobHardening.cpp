#include "jobstore/opening/jobHardening.h"

#include <string_view>
#include <utility>

namespace kestrin::opening {
namespace {

/// Ample for every job a console writes, and small enough that a forged schema or
/// size field cannot make the library allocate or loop without end.
constexpr std::pair<int, int> kLimits[] = {
    {SQLITE_LIMIT_LENGTH, 1'000'000},
    {SQLITE_LIMIT_SQL_LENGTH, 100'000},
    {SQLITE_LIMIT_COLUMN, 1000},
    {SQLITE_LIMIT_EXPR_DEPTH, 100},
    {SQLITE_LIMIT_COMPOUND_SELECT, 3},
    {SQLITE_LIMIT_VDBE_OP, 25'000},
    {SQLITE_LIMIT_FUNCTION_ARG, 100},
    {SQLITE_LIMIT_ATTACHED, 0},
    {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 50},
    {SQLITE_LIMIT_VARIABLE_NUMBER, 10},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
    {SQLITE_LIMIT_WORKER_THREADS, 0},
};

constexpr std::pair<int, int> kSwitches[] = {
    {SQLITE_DBCONFIG_DEFENSIVE, 1},
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
    {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
    {SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0},
    {SQLITE_DBCONFIG_WRITABLE_SCHEMA, 0},
    // Closing would otherwise write a log's content into its database.
    {SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1},
};

/// The functions that the program's own queries call.
bool IsKnownFunction(std::string_view name) { return name == "count" || name == "max"; }

int SelectionsOnly(void*, int action, const char*, const char* second, const char*, const char*) {
  if (action == SQLITE_FUNCTION) return IsKnownFunction(second) ? SQLITE_OK : SQLITE_DENY;
  return action == SQLITE_SELECT || action == SQLITE_READ ? SQLITE_OK : SQLITE_DENY;
}

}  // namespace

int HardenConnection(sqlite3* database) {
  for (const auto& [limit, value] : kLimits) sqlite3_limit(database, limit, value);
  for (const auto& [option, value] : kSwitches) {
    // A library built without an option has nothing to switch there.
    sqlite3_db_config(database, option, value, nullptr);
  }
  return sqlite3_exec(database,
                      "PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; PRAGMA query_only=ON",
                      nullptr, nullptr, nullptr);
}

int AllowSelectionsOnly(sqlite3* database) {
  return sqlite3_set_authorizer(database, SelectionsOnly, nullptr);
}

}  // namespace kestrin::opening
