#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <string>
#include <vector>

#include "tools/exporter/progressBar.h"

namespace kestrin::exporter {

/// The two streams of a run, shared by its threads: result lines, complaints, and
/// the progress bar that makes way for both.
class Console {
 public:
  /// What the terminal behind stderr is good for; nothing when there is none.
  struct Look {
    bool bar = false;
    bool colour = false;
  };

  /// The streams stay the caller's.
  Console(std::FILE* out, std::FILE* errors, Look look);
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  /// A line on stdout.
  void Result(const std::string& line);
  /// A line on stderr, with the program's name in front.
  void Complain(const std::string& line);

  /// So many rows are to come, of all sets together. Called once, before the first set.
  void Expect(std::int64_t rows);

  /// A place in the bar for a set of `total` rows.
  std::size_t BeginSet(const std::string& kind, const std::string& job, std::int64_t total);
  void ShowProgress(std::size_t set, std::int64_t done);
  void EndSet(std::size_t set);

  /// Whether stdout took every line so far.
  bool ResultsArrived();

 private:
  struct Place {
    bool used = false;
    SetProgress progress;
  };

  void Draw();
  void Clear();

  std::mutex mutex_;
  std::FILE* out_;
  std::FILE* errors_;
  Look look_;
  bool drawn_ = false;
  Pace pace_;  // of the sets that have ended
  std::chrono::steady_clock::time_point begunAt_ = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point drawnAt_;
  std::vector<Place> places_;
};

}  // namespace kestrin::exporter
