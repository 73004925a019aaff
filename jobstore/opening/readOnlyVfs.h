#pragma once

namespace kestrin::opening {

/// How SQLite's file layer treats other processes that have the job open.
enum class FileLocks {
  kShared,  ///< shared locks while reading, as any reader takes them
  kNone,    ///< no locks, and so no shared-memory file for a write-ahead log
};

/// Name of a file layer that cannot change anything beside a job: databases,
/// journals and write-ahead logs open for reading only, are never created and
/// never deleted. Temporary files of the library's own (a sort that outgrows
/// memory) go to the system's temporary folder as usual.
///
/// The library knows file layers by name for a whole process, so each of the two
/// is registered once, at its first use, from whichever thread that is.
/// Failure: null, when the library has no layer to stand on.
const char* ReadOnlyVfs(FileLocks locks);

}  // namespace kestrin::opening
