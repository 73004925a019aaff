#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace kestrin::opening {

/// What shows that somebody wrote to a job while it was read or copied without a lock, which
/// would mix rows from before with rows from after.
///
/// A console that writes ahead may go on recording: what it appends to its log stands behind all
/// that is read. It must neither begin its log anew nor bring newer pages into the job's file.
struct JobMarks {
  std::uintmax_t size = 0;
  std::int64_t written = 0;   ///< by the clock of the drive, which may be a coarse one
  std::string begin{};        ///< of the job's file
  std::string journal{};      ///< the beginning of what is rolled back; empty where there is none
  std::string log{};          ///< the beginning of the write-ahead log, which tells it from others
  std::string broughtOver{};  ///< how far the log's index says it was brought into the file

  friend bool operator==(const JobMarks&, const JobMarks&) = default;
};

/// As they are now. A file that is missing or cannot be read has no marks.
JobMarks MarksOf(const std::filesystem::path& job);

/// Whether what was read since `before` is one state of the job. A log that was begun since
/// then was not read.
bool StillHold(const JobMarks& before, const std::filesystem::path& job);

}  // namespace kestrin::opening
