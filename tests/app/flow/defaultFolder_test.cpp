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

  std::string Find(char separator = '/') {
    return DefaultJobFolder("/opt/kestrin/", window, separator);
  }
};

TEST_F(DefaultFolder, IsTheApplicationsWithoutDrives) { EXPECT_EQ(Find(), "/opt/kestrin/"); }

TEST_F(DefaultFolder, IsTheFirstRemovableDriveWithAJob) {
  window.drives = {{"/media/a", kRemovable, kReady},
                   {"/media/b", kRemovable, kReady},
                   {"/media/c", kRemovable, kReady}};
  window.filesIn = {{"/media/b/", {"readme.txt", "x.sqlite"}}, {"/media/c/", {"y.sqlite"}}};
  EXPECT_EQ(Find(), "/media/b/");
  EXPECT_THAT(window.Take(), ElementsAre("FilesIn /media/a/", "FilesIn /media/b/"));
}

TEST_F(DefaultFolder, NeverLooksAtOtherDrivesOrAtThoseNotReady) {
  window.drives = {{"/", !kRemovable, kReady}, {"/media/a", kRemovable, !kReady}};
  window.filesIn = {{"/", {"x.sqlite"}}, {"/media/a/", {"x.sqlite"}}};
  EXPECT_EQ(Find(), "/opt/kestrin/");
  EXPECT_THAT(window.Take(), IsEmpty());
}

TEST_F(DefaultFolder, AJobInASubfolderDoesNotCount) {
  window.drives = {{"/media/a", kRemovable, kReady}};
  window.filesIn = {{"/media/a/", {"sqlite", "x.sqlite.bak"}}, {"/media/a/jobs/", {"x.sqlite"}}};
  EXPECT_EQ(Find(), "/opt/kestrin/");
}

TEST_F(DefaultFolder, AnyNameCountsAndLettersCaseWhereItDoesInNames) {
  window.drives = {{"/media/a", kRemovable, kReady}, {"/media/b", kRemovable, kReady}};
  window.filesIn = {{"/media/a/", {"X.SQLite"}}, {"/media/b/", {".sqlite"}}};
  const bool oneName = base::NameKey("X.SQLite") == base::NameKey("x.sqlite");
  EXPECT_EQ(Find(), oneName ? "/media/a/" : "/media/b/");
}

TEST_F(DefaultFolder, ARootThatEndsInASeparatorGetsNoSecondOne) {
  window.drives = {{"E:\\", kRemovable, kReady}};
  window.filesIn = {{"E:\\", {"x.sqlite"}}};
  EXPECT_EQ(Find('\\'), "E:\\");
}

}  // namespace
}  // namespace kestrin::flow
