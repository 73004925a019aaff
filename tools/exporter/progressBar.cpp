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

}  // namespace

std::string ProgressLine(const std::vector<SetProgress>& sets, int columns) {
  std::int64_t done = 0;
  std::int64_t total = 0;
  for (const SetProgress& set : sets) {
    done += set.done;
    total += std::max(set.total, set.done);
  }
  const std::int64_t filled = total == 0 ? 0 : kBarWidth * done / total;
  std::string line = "[" + std::string(static_cast<std::size_t>(filled), '#') +
                     std::string(static_cast<std::size_t>(kBarWidth - filled), '.') + "] " +
                     std::to_string(done) + " of " + std::to_string(total) + " rows";
  std::string_view before = "  ";
  for (const SetProgress& set : sets) {
    line += std::string(before) + set.kind + " " + set.job;
    before = ", ";
  }
  return Cut(line, columns);
}

}  // namespace kestrin::exporter
