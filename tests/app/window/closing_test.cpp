#include <gtest/gtest.h>

#include <QTimer>
#include <chrono>
#include <filesystem>
#include <set>

#include "jobstore/queries.h"
#include "tests/app/testWindow.h"
#include "tests/support/recordingHost.h"

namespace kestrin::window {
namespace {

using test::SmallJob;
using test::TestWindow;

/// Long enough to be closed in the middle of anything.
constexpr int kManyEpochs = 100000;

std::vector<std::string> FilesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
  }
  return names;
}

TEST(Closing, AWindowAtRestCloses) {
  TestWindow window;
  EXPECT_TRUE(window->close());
  EXPECT_FALSE(window->isVisible());
}

TEST(Closing, DuringAnExportStopsItAndLeavesNothingHalfMade) {
  TestWindow window;
  window.Select(SmallJob(window.folder, "long.sqlite", kManyEpochs));
  window.dialogs.toSave = {window.folder / "out.shp"};
  bool running = false;
  QTimer::singleShot(20, [&] {
    running = !window->State().job.idle;
    window->close();
    EXPECT_TRUE(window->isVisible());
  });
  window.Click("Command2");
  EXPECT_TRUE(running);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(FilesIn(window.folder.Path()), std::vector<std::string>{"long.sqlite"});
}

TEST(Closing, DuringASelectionStopsItsPreview) {
  TestWindow window;
  const std::string job = SmallJob(window.folder, "long.sqlite", kManyEpochs);
  QTimer::singleShot(50, [&] { window->close(); });
  window.Select(job);
  EXPECT_FALSE(window->isVisible());
}

TEST(Closing, AskedTwiceIsTheSameAsOnce) {
  TestWindow window;
  window.Select(SmallJob(window.folder, "long.sqlite", kManyEpochs));
  window.dialogs.toSave = {window.folder / "out.shp"};
  QTimer::singleShot(20, [&] {
    window->close();
    window->close();
  });
  window.Click("Command1_0");
  EXPECT_FALSE(window->isVisible());
}

TEST(Yielding, InputIsAnsweredBetweenTheRowsOfAnExportAndOfAPreview) {
  TestWindow window;
  window.Select(SmallJob(window.folder, "long.sqlite", kManyEpochs));
  window.dialogs.toSave = {window.folder / "out.shp"};
  std::set<std::int32_t> counts;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout,
                   [&] { counts.insert(window->State().progress.count); });
  timer.start(1);
  window.Click("Command1_0");
  EXPECT_GE(counts.size(), 5U) << "different progress counts seen from events";
  counts.clear();
  window.Click("Option1_3");
  EXPECT_GE(counts.size(), 2U);
}

TEST(Yielding, EventsRunWhileTheRowsAreStillBeingSorted) {
  TestWindow window;
  const std::string path = SmallJob(window.folder, "long.sqlite", kManyEpochs);
  WindowEvents events;
  events.Begin();
  int rowsBefore = 0;
  int rows = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { rowsBefore += rows == 0 ? 1 : 0; });
  timer.start(5);
  struct Host : test::RecordingHost {
    explicit Host(WindowEvents& loop) : loop_(loop) {}
    void YieldInsideStep() noexcept override { loop_.YieldWithoutThrow(); }
    WindowEvents& loop_;
  } host(events);
  jobstore::Job job(path, host);
  jobstore::Query<jobstore::PointEpochs> epochs(job);
  jobstore::EpochRow row;
  ASSERT_TRUE(epochs.Next(row));
  ++rows;
  EXPECT_GE(rowsBefore, 2);
}

TEST(Yielding, AMillionYieldsRunTheEventsOnlyNowAndThen) {
  WindowEvents events;
  events.Begin();
  int pumps = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { ++pumps; });
  timer.start(0);
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 1000000; ++i) events.Yield();
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_LE(pumps, took / std::chrono::milliseconds(8) + 1);
}

TEST(Yielding, TimersTickInsideARowLoop) {
  WindowEvents events;
  events.Begin();
  int ticks = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
  timer.start(10);
  const auto start = std::chrono::steady_clock::now();
  const auto longEnough = std::chrono::seconds(20);
  while (ticks < 8 && std::chrono::steady_clock::now() - start < longEnough) events.Yield();
  EXPECT_GE(ticks, 8);
}

TEST(Yielding, ACancelledRunEndsAtItsNextYieldButNeverInsideAnEvent) {
  WindowEvents events;
  events.Begin();
  bool thrownInside = false;
  QTimer::singleShot(0, [&] {
    events.Cancel();
    try {
      events.DoEvents();
    } catch (const base::RunCancelled&) {
      thrownInside = true;
    }
  });
  EXPECT_THROW(events.DoEvents(), base::RunCancelled);
  EXPECT_FALSE(thrownInside);
}

}  // namespace
}  // namespace kestrin::window
