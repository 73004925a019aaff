#pragma once

#include <cstdint>
#include <string>

#include "jobstore/sqliteDefs.h"

namespace kestrin::test {

/// What the operation that opens a job says of a file: 0, or the negative of
/// its code.
inline std::int32_t OpenResult(const std::string& path) {
  jobstore::Database library;
  return library.linx_sqlite3_open(path);
}

inline constexpr std::int32_t kCannotOpen = -14;

}  // namespace kestrin::test
