#include <gtest/gtest.h>

#include <QTimer>
#include <algorithm>
#include <chrono>
#include <ctime>

#include "tests/app/testWindow.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::window {
namespace {

using namespace std::chrono_literals;

// Sanitizers slow everything down many times.
#if defined(__has_feature)
constexpr bool kSanitized = __has_feature(address_sanitizer);
#else
constexpr bool kSanitized = false;
#endif
constexpr auto kLongest = kSanitized ? 500ms : 50ms;

/// Work of this thread so far. What other programs take of the processor meanwhile does not count.
std::chrono::nanoseconds Work() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// The longest work between two moments at which the window would have answered.
class LongestWork {
 public:
  LongestWork() {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
    timer_.start(0);
  }
  void Answer() {
    const auto now = Work();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
  }
  std::chrono::nanoseconds Longest() const { return longest_; }

 private:
  QTimer timer_;
  std::chrono::nanoseconds last_ = Work();
  std::chrono::nanoseconds longest_{};
};

TEST(Answering, TakesNoMoreThan50MillisecondsWhateverIsDrawnOrExported) {
  test::TestWindow window;
  const std::string job = window.folder / "job.sqlite";
  sample::MakeSampleJob(job, {.profile = "sprayer", .rows = 40000});
  window.dialogs.toSave = {window.folder / "out.shp"};
  LongestWork work;
  window.Select(job);
  for (int kind = 3; kind >= 0; --kind) {
    window.Click("Option1_" + std::to_string(kind));
    work.Answer();
  }
  EXPECT_LT(work.Longest(), kLongest) << "selecting and drawing";
  window.Click("Command2");
  work.Answer();
  EXPECT_LT(work.Longest(), kLongest) << "exporting";
  EXPECT_TRUE(window.dialogs.messages.empty());
}

}  // namespace
}  // namespace kestrin::window
