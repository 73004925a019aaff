#include "tools/exporter/progressBar.h"

#include <algorithm>
#include <string_view>

namespace kestrin::exporter {
namespace {

constexpr std::int64_t kBarWidth = 24;

/// Cut to so many characters, never inside one of UTF-8.
std::string Cut(const std::string& text, int columns) {
  std::size_t end = 0;
  for (int used = 0; end < text.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && used++ == columns) break;
  }
  return text.substr(0, end);
}

std::string TwoDigits(std::int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

/// "0:09", "12:30", "1:02:03".
std::string ClockText(std::int64_t seconds) {
  const std::int64_t minutes = seconds / 60;
  const std::string end = ":" + TwoDigits(seconds % 60);
  if (minutes < 60) return std::to_string(minutes) + end;
  return std::to_string(minutes / 60) + ":" + TwoDigits(minutes % 60) + end;
}

std::string PaceText(const Pace& pace) {
  if (pace.seconds < 1 || pace.done == 0) return {};
  const double rate = static_cast<double>(pace.done) / pace.seconds;
  const auto left = static_cast<std::int64_t>(static_cast<double>(pace.left) / rate);
  return ", " + std::to_string(static_cast<std::int64_t>(rate)) + " rows/s" +
         (pace.left > 0 ? ", " + ClockText(left) + " left" : "");
}

}  // namespace

std::string ProgressLine(const std::vector<SetProgress>& sets, const Pace& pace, int columns) {
  std::int64_t done = 0;
  std::int64_t total = 0;
  for (const SetProgress& set : sets) {
    done += set.done;
    total += std::max(set.total, set.done);
  }
  const std::int64_t filled = total == 0 ? 0 : kBarWidth * done / total;
  std::string line = "[" + std::string(static_cast<std::size_t>(filled), '#') +
                     std::string(static_cast<std::size_t>(kBarWidth - filled), '.') + "] " +
                     std::to_string(done) + " of " + std::to_string(total) + " rows" +
                     PaceText(pace);
  std::string_view before = "  ";
  for (const SetProgress& set : sets) {
    line += std::string(before) + set.kind + " " + set.job;
    before = ", ";
  }
  return Cut(line, columns);
}

}  // namespace kestrin::exporter
