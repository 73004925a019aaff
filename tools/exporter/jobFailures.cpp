#include "tools/exporter/jobFailures.h"

#include <utility>

namespace kestrin::exporter {

void JobFailures::Add(std::string_view kind, std::vector<std::string> texts) {
  any_ = any_ || !texts.empty();
  alike_ = alike_ && !texts.empty() && (held_.empty() || texts[0] == held_[0].texts[0]);
  held_.push_back({kind, std::move(texts)});
  if (!alike_) Finish();
}

void JobFailures::Finish() {
  const std::vector<Kind> held = std::exchange(held_, {});
  if (alike_ && held.size() == kinds_ && kinds_ > 1) return TellAsOne(held);
  for (const Kind& kind : held) {
    for (const std::string& text : kind.texts) report_.Fail({jobPath_, false, {kind.name}, text});
  }
}

void JobFailures::TellAsOne(const std::vector<Kind>& held) {
  std::vector<std::string_view> names;
  names.reserve(held.size());
  for (const Kind& kind : held) names.push_back(kind.name);
  report_.Fail({jobPath_, false, names, held[0].texts[0]});
}

}  // namespace kestrin::exporter
