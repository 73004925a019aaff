#include "tools/exporter/console.h"

#include <algorithm>

#include "tools/exporter/terminal.h"

namespace kestrin::exporter {
namespace {

constexpr auto kBetweenDrawings = std::chrono::milliseconds(100);

}  // namespace

Console::Console(std::FILE* out, std::FILE* errors, Look look)
    : out_(out), errors_(errors), look_(look) {}

Console::~Console() { Clear(); }

void Console::Result(const std::string& line) {
  const std::lock_guard lock(mutex_);
  Clear();
  std::fprintf(out_, "%s\n", line.c_str());
  std::fflush(out_);
}

void Console::Complain(const std::string& line) {
  const std::lock_guard lock(mutex_);
  Clear();
  const char* const name = look_.colour ? "\033[31mkestrin-export:\033[0m" : "kestrin-export:";
  std::fprintf(errors_, "%s %s\n", name, line.c_str());
  std::fflush(errors_);
}

void Console::Expect(std::int64_t rows) {
  pace_.left = rows;
  begunAt_ = std::chrono::steady_clock::now();
}

std::size_t Console::BeginSet(const std::string& kind, const std::string& job, std::int64_t total) {
  const std::lock_guard lock(mutex_);
  auto place = std::find_if(places_.begin(), places_.end(), [](const Place& p) { return !p.used; });
  if (place == places_.end()) place = places_.insert(place, Place());
  *place = {true, {kind, job, 0, total}};
  return static_cast<std::size_t>(place - places_.begin());
}

void Console::ShowProgress(std::size_t set, std::int64_t done) {
  const std::lock_guard lock(mutex_);
  places_[set].progress.done = done;
  const auto now = std::chrono::steady_clock::now();
  if (!look_.bar || now - drawnAt_ < kBetweenDrawings) return;
  drawnAt_ = now;
  Draw();
}

void Console::EndSet(std::size_t set) {
  const std::lock_guard lock(mutex_);
  const SetProgress& progress = places_[set].progress;
  pace_.done += progress.done;
  // A set that ended early leaves none of its rows for later.
  pace_.left -= std::max(progress.total, progress.done);
  places_[set].used = false;
  Clear();
}

bool Console::ResultsArrived() {
  const std::lock_guard lock(mutex_);
  return std::fflush(out_) == 0 && std::ferror(out_) == 0;
}

void Console::Draw() {
  std::vector<SetProgress> sets;
  Pace pace = pace_;
  pace.seconds = std::chrono::duration<double>(drawnAt_ - begunAt_).count();
  for (const Place& place : places_) {
    if (!place.used) continue;
    sets.push_back(place.progress);
    pace.done += place.progress.done;
    pace.left -= place.progress.done;
  }
  std::fprintf(errors_, "\r%s\033[K", ProgressLine(sets, pace, TerminalColumns() - 1).c_str());
  std::fflush(errors_);
  drawn_ = true;
}

void Console::Clear() {
  if (!drawn_) return;
  std::fputs("\r\033[K", errors_);
  std::fflush(errors_);
  drawn_ = false;
}

}  // namespace kestrin::exporter
