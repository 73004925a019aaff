#pragma once

#include <filesystem>
#include <string>

namespace kestrin::test {

/// The states in which a console, or a stick pulled out too early, leaves a job.
enum class JobState {
  kAtRest,            ///< rollback mode, completed
  kJournalKept,       ///< rollback mode, completed, voided -journal left (PERSIST)
  kJournalEmpty,      ///< rollback mode, completed, -journal of 0 bytes left (TRUNCATE)
  kCutOff,            ///< rollback mode, killed in a transaction: -journal to roll back
  kWriteAhead,        ///< write-ahead mode, closed well: no -wal
  kWriteAheadEmpty,   ///< write-ahead mode, -wal of 0 bytes
  kWriteAheadLog,     ///< write-ahead mode, killed: rows stand in the -wal only
  kWriteAheadIndexed  ///< the same, with the -shm left as well
};

/// Makes `folder`/job.sqlite in a state and returns its path. However it was left,
/// it holds `kStateEpochs` epochs, the i-th at {100, i} with east i: rows of a
/// transaction cut off do not count, rows in a log do.
std::string MakeJob(const std::filesystem::path& folder, JobState state,
                    const std::string& name = "job.sqlite");

inline constexpr int kStateEpochs = 3000;

}  // namespace kestrin::test
