#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/runHost.h"
#include "export/setNames.h"
#include "tools/exporter/console.h"
#include "tools/exporter/interruption.h"

namespace kestrin::exporter {

/// The terminal's side of one walk over a job, or of several that add up to one: its place in
/// the progress bar for the length of a scope, and what it has to say, each once.
class SetHost : public base::RunHost {
 public:
  /// The console must outlive it. `rows` are to be counted.
  SetHost(Console& console, std::string_view kind, const std::string& jobPath, std::int64_t rows)
      : console_(console),
        set_(console.BeginSet(std::string(kind), exports::JobNameOf(jobPath).name, rows)) {}
  ~SetHost() override { console_.EndSet(set_); }
  SetHost(const SetHost&) = delete;
  SetHost& operator=(const SetHost&) = delete;

  void CountRow() override {
    if ((++rows_ & kRowsBetweenShows) == 0) console_.ShowProgress(set_, rows_);
  }
  void Yield() override {
    if (StopSignal() != 0) throw base::RunCancelled();
  }
  void ShowMessage(const std::string& text) override {
    if (std::ranges::find(texts_, text) == texts_.end()) texts_.push_back(text);
  }

  const std::vector<std::string>& Texts() const { return texts_; }

 private:
  static constexpr std::int64_t kRowsBetweenShows = 1023;  // a mask

  Console& console_;
  std::size_t set_;
  std::int64_t rows_ = 0;
  std::vector<std::string> texts_;
};

}  // namespace kestrin::exporter
