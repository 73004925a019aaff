#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "jobstore/opening/jobMarks.h"
#include "jobstore/opening/privateCopy.h"
#include "jobstore/opening/sqliteHandles.h"
#include "jobstore/opening/workBudget.h"

namespace kestrin::opening {

/// A job that is read without a lock, and what it looked like before.
struct Unlocked {
  std::filesystem::path job;
  JobMarks before;
};

/// A job file open for reading, or the reason why it is not.
struct OpenedJob {
  /// Whether all that was read so far is one state of the job.
  bool IsOneState() const { return !unlocked || StillHold(unlocked->before, unlocked->job); }

  std::optional<Unlocked> unlocked{};
  std::unique_ptr<PrivateCopy> copy;   ///< what is read, where it is not the job itself
  std::unique_ptr<WorkBudget> budget;  ///< of the connection; to be renewed per statement
  DatabasePtr database;                ///< null when one of the codes is not SQLITE_OK
  int result = 0;                      ///< of the opening: SQLITE_OK or the library's code
  int unreadable = 0;                  ///< the code that every statement fails with
};

/// Opens a job without changing a byte of it or of its folder, whatever state its
/// writer left it in:
///
/// - at rest: read in place under a shared lock, from the first statement to the end;
/// - in write-ahead mode with an empty log or none: read in place as a file that
///   nobody changes, since the usual way makes two files beside it;
/// - with content in its write-ahead log: read in place together with the log,
///   whose index is kept in memory instead of a file;
/// - with the journal of a transaction that was cut off: rolled back in a private
///   copy.
///
/// A lock keeps everybody from writing meanwhile. Where there is none, IsOneState tells
/// whether somebody has.
///
/// The header and the schema are read at once, since how they are to be read follows
/// from what the library says of them. A file that can be opened but is no database, or
/// only the beginning of one, is open all the same; what is wrong with it is told by
/// every statement. Path in UTF-8.
/// Failure: no database, and the library's (primary) code as the result.
OpenedJob OpenJobFile(const std::string& path);

}  // namespace kestrin::opening
