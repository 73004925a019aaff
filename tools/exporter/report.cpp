#include "tools/exporter/report.h"

#include "tools/exporter/jsonLines.h"
#include "tools/exporter/reasons.h"

namespace kestrin::exporter {
namespace {

std::string InWords(const MadeSet& set) {
  return set.path + ": " + std::to_string(set.outcome.epochs) + " epochs" +
         (set.outcome.summary.empty() ? "" : ", " + set.outcome.summary);
}

}  // namespace

void Report::Made(const MadeSet& set) {
  if (!style_.quiet) console_.Result(style_.json ? JsonLine(set) : InWords(set));
}

void Report::Summed(const JobSummary& summary) {
  if (!style_.quiet) console_.Result(style_.json ? JsonLine(summary) : InWords(summary));
}

void Report::Fail(const Failure& failure) {
  std::string text = failure.path + ": ";
  // One kind of one that was asked for is named as one of several is.
  if (failure.kinds.size() == 1) text.append(failure.kinds.front()).append(": ");
  console_.Complain(text + WithReason(failure.text, failure.path));
  if (style_.json) console_.Result(JsonLine(failure));
}

}  // namespace kestrin::exporter
