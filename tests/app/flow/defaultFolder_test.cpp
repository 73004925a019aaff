#include "app/flow/defaultFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/nameKey.h"
#include "tests/app/flow/recordingWindow.h"

namespace kestrin::flow {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr bool kRemovable = true;
constexpr bool kReady = true;

struct DefaultFolder : testing::Test {
  test::RecordingWindow window;

  /// A folder as it is asked for, whatever separators stand within.
  static std::string In(const std::string& folder) { return folder + base::kSeparator; }
  std::string Find() { return DefaultJobFolder("/opt/kestrin/", window); }
};

TEST_F(DefaultFolder, IsTheApplicationsWithoutDrives) { EXPECT_EQ(Find(), "/opt/kestrin/"); }

TEST_F(DefaultFolder, IsTheFirstRemovableDriveWithAJob) {
  window.drives = {{"/media/a", kRemovable, kReady},
                   {"/media/b", kRemovable, kReady},
                   {"/media/c", kRemovable, kReady}};
  window.filesIn = {{In("/media/b"), {"readme.txt", "x.sqlite"}}, {In("/media/c"), {"y.sqlite"}}};
  EXPECT_EQ(Find(), In("/media/b"));
  EXPECT_THAT(window.Take(), ElementsAre("FilesIn " + In("/media/a"), "FilesIn " + In("/media/b")));
}

TEST_F(DefaultFolder, NeverLooksAtOtherDrivesOrAtThoseNotReady) {
  window.drives = {{In(""), !kRemovable, kReady}, {"/media/a", kRemovable, !kReady}};
  window.filesIn = {{In(""), {"x.sqlite"}}, {In("/media/a"), {"x.sqlite"}}};
  EXPECT_EQ(Find(), "/opt/kestrin/");
  EXPECT_THAT(window.Take(), IsEmpty());
}

TEST_F(DefaultFolder, AJobInASubfolderDoesNotCount) {
  window.drives = {{"/media/a", kRemovable, kReady}};
  window.filesIn = {{In("/media/a"), {"sqlite", "x.sqlite.bak"}},
                    {In("/media/a/jobs"), {"x.sqlite"}}};
  EXPECT_EQ(Find(), "/opt/kestrin/");
}

TEST_F(DefaultFolder, AnyNameCountsAndLettersCaseWhereItDoesInNames) {
  window.drives = {{"/media/a", kRemovable, kReady}, {"/media/b", kRemovable, kReady}};
  window.filesIn = {{In("/media/a"), {"X.SQLite"}}, {In("/media/b"), {".sqlite"}}};
  const bool oneName = base::NameKey("X.SQLite") == base::NameKey("x.sqlite");
  EXPECT_EQ(Find(), oneName ? In("/media/a") : In("/media/b"));
}

TEST_F(DefaultFolder, ARootThatEndsInASeparatorGetsNoSecondOne) {
  window.drives = {{In("E:"), kRemovable, kReady}};
  window.filesIn = {{In("E:"), {"x.sqlite"}}};
  EXPECT_EQ(Find(), In("E:"));
}

}  // namespace
}  // namespace kestrin::flow
