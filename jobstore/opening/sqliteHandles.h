#pragma once

#include <sqlite3.h>

#include <memory>

namespace kestrin::opening {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

/// A library object, given back at the end of its scope.
using DatabasePtr = std::unique_ptr<sqlite3, CloseDatabase>;
using StatementPtr = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

}  // namespace kestrin::opening
