#include "tests/app/flow/exportCommandsTest.h"

#include <algorithm>

namespace kestrin::test {
namespace {

std::vector<std::string> CallsOfSetControlsEnabled(bool enable, bool keepPreview) {
  RecordingWindow window;
  flow::Progress progress;
  flow::ControlRules(window, window, progress).SetControlsEnabled(enable, keepPreview);
  return window.Take();
}

}  // namespace

CommandsTest::CommandsTest() {
  job.jobFolder = Own("/jobs/");
  job.jobName = "North.Field";
  job.fileSafeName = "North_Field";
  job.dateText = "2006Jun15";
  job.exportFolder = Own("/data/North_Field/2006Jun15");
  files.names = {jobPath};
  files.made.clear();
  window.chosen = Own("/out/a.shp");
}

std::vector<std::string> CommandsTest::Between() {
  const std::vector<std::string> calls = window.Take();
  const auto first = CallsOfSetControlsEnabled(false, true);
  const auto last = CallsOfSetControlsEnabled(true, false);
  const bool whole = calls.size() >= first.size() + last.size() &&
                     std::equal(first.begin(), first.end(), calls.begin()) &&
                     std::equal(last.rbegin(), last.rend(), calls.rbegin());
  EXPECT_TRUE(whole) << testing::PrintToString(calls);
  if (!whole) return calls;
  return {calls.begin() + std::ssize(first), calls.end() - std::ssize(last)};
}

void CommandsTest::ExpectInOrder(const std::vector<std::string>& expected) const {
  auto from = window.calls.begin();
  for (const std::string& call : expected) {
    from = std::find(from, window.calls.end(), call);
    if (from == window.calls.end()) {
      FAIL() << "missing, or too early: " << call << "\n" << testing::PrintToString(window.calls);
    }
    ++from;
  }
}

}  // namespace kestrin::test
