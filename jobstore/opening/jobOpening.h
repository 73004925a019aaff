#pragma once

#include <memory>
#include <string>

#include "jobstore/opening/privateCopy.h"
#include "jobstore/opening/sqliteHandles.h"
#include "jobstore/opening/workBudget.h"

namespace kestrin::opening {

/// A job file open for reading, or the reason why it is not.
struct OpenedJob {
  std::unique_ptr<PrivateCopy> copy;   ///< what is read, where it is not the job itself
  std::unique_ptr<WorkBudget> budget;  ///< of the connection; to be renewed per statement
  DatabasePtr database;                ///< null on failure
  int result = 0;                      ///< SQLITE_OK or the library's (primary) code
};

/// Opens a job without changing a byte of it or of its folder, whatever state its
/// writer left it in:
///
/// - at rest: read in place under a shared lock;
/// - in write-ahead mode with an empty log or none: read in place as a file that
///   nobody changes, since the usual way makes two files beside it;
/// - with content in its write-ahead log: read in place together with the log,
///   whose index is kept in memory instead of a file;
/// - with the journal of a transaction that was cut off: rolled back in a private
///   copy.
///
/// The header and the schema are read at once, so a file that is no database fails
/// here and not at the first query. An empty file is no job. Path in UTF-8.
/// Failure: no database, and the library's code as the result.
OpenedJob OpenJobFile(const std::string& path);

}  // namespace kestrin::opening
