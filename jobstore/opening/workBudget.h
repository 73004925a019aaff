#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <utility>

namespace kestrin::opening {

/// Ends a statement that takes more steps than any honest file of its size can ask
/// for.
///
/// The tree of a forged file can lead to the same pages over and over: a few
/// kilobytes then hold rows without end, or rows of a megabyte each, and sorting them fills
/// the temporary disk before the first one comes.
/// Failure: such a statement's step ends with SQLITE_INTERRUPT.
///
/// Must stay where it is, and exist, as long as the connection it watches.
class WorkBudget {
 public:
  /// For a database whose files together have `bytes` bytes.
  explicit WorkBudget(std::uintmax_t bytes);
  ~WorkBudget() = default;
  WorkBudget(const WorkBudget&) = delete;
  WorkBudget& operator=(const WorkBudget&) = delete;

  void Watch(sqlite3* database);

  /// Grants the full budget anew, unless it is shared; for each statement prepared.
  void Renew() {
    if (!shared_) left_ = full_;
  }

  /// What is left now is for all statements to come.
  void Share() { shared_ = true; }

  /// `call` is called now and then while a statement works, many times in a
  /// millisecond; it must neither throw nor use the connection.
  void CallMeanwhile(std::function<void()> call) { meanwhile_ = std::move(call); }

 private:
  static int Spend(void* budget);
  std::int64_t PagesSinceLast() const;

  sqlite3* database_ = nullptr;
  std::int64_t full_;
  std::int64_t left_;
  bool shared_ = false;
  std::function<void()> meanwhile_;
};

}  // namespace kestrin::opening
