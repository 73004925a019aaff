#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/exporter/report.h"

namespace kestrin::exporter {

/// What fails of one job, kind by kind. Told at once, but for what every kind so far has said
/// first: that is held back, since one line tells it when the last kind says it too. What a kind
/// says after that follows from it.
class JobFailures {
 public:
  /// The report must outlive it. So many kinds are to come.
  JobFailures(Report& report, std::string jobPath, std::size_t kinds)
      : report_(report), jobPath_(std::move(jobPath)), kinds_(kinds) {}

  /// The next kind has ended, with these texts; none when all went well.
  void Add(std::string_view kind, std::vector<std::string> texts);

  /// Tells what is still held back. For the end, also one that comes early.
  void Finish();

  bool Any() const { return any_; }

 private:
  struct Kind {
    std::string_view name;
    std::vector<std::string> texts;
  };
  void TellAsOne(const std::vector<Kind>& held);

  Report& report_;
  std::string jobPath_;
  std::size_t kinds_;
  std::vector<Kind> held_;
  bool alike_ = true;
  bool any_ = false;
};

}  // namespace kestrin::exporter
