#include "export/exportPaths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/memoryFiles.h"

namespace kestrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ExportPaths, WithoutTakesOutEveryOccurrence) {
  EXPECT_EQ(Without("a.shp.shp", ".shp"), "a");
  EXPECT_EQ(Without("x.shpy.shp", ".shp"), "xy");
  EXPECT_EQ(Without("a.SHP", ".shp"), "a.SHP");
  EXPECT_EQ(Without("", ".shp"), "");
}

TEST(ExportPaths, WhatTakingOutJoinsIsNotLookedAtAgain) {
  EXPECT_EQ(Without("a.s.shphp", ".shp"), "a.shp");
}

TEST(ExportPaths, JobNameIsTheFileNameWithoutItsExtension) {
  const SplitPath job = JobNameOf("C:\\jobs\\North.Field.sqlite", '\\');
  EXPECT_EQ(job.folder, "C:\\jobs\\");
  EXPECT_EQ(job.name, "North.Field");
  EXPECT_EQ(JobNameOf("/jobs/North.Field.sqlite", '/').folder, "/jobs/");
  EXPECT_EQ(JobNameOf("/jobs/North.Field.sqlite", '/').name, "North.Field");
}

TEST(ExportPaths, JobNameKeepsAnExtensionInOtherLetters) {
  EXPECT_EQ(JobNameOf("/jobs/a.SQLITE", '/').name, "a.SQLITE");
}

TEST(ExportPaths, JobNameLosesEveryExtensionEvenOfAFolder) {
  EXPECT_EQ(JobNameOf("/x.sqlite/a.sqlite.sqlite", '/').folder, "/x/");
  EXPECT_EQ(JobNameOf("/x.sqlite/a.sqlite.sqlite", '/').name, "a");
}

TEST(ExportPaths, AFileNameAloneHasNoFolder) {
  EXPECT_EQ(JobNameOf("a.sqlite", '/').folder, "");
  EXPECT_EQ(JobNameOf("a.sqlite", '/').name, "a");
  EXPECT_EQ(JobNameOf("jobs/a.sqlite", '\\').folder, "");
}

TEST(ExportPaths, FileSafeNameHasNoDots) {
  EXPECT_EQ(FileSafeName("North.Field"), "North_Field");
  EXPECT_EQ(FileSafeName("..a."), "__a_");
}

TEST(ExportPaths, WithSeparatorAddsOneWhereThereIsNone) {
  EXPECT_EQ(WithSeparator("C:\\Kestrin", '\\'), "C:\\Kestrin\\");
  EXPECT_EQ(WithSeparator("C:\\", '\\'), "C:\\");
  EXPECT_EQ(WithSeparator("/opt/kestrin", '/'), "/opt/kestrin/");
  EXPECT_EQ(WithSeparator("/", '/'), "/");
}

TEST(ExportPaths, ExportFolderAndSetNameComeFromNameAndDate) {
  EXPECT_EQ(ExportFolder("C:\\K\\TrevaskData\\", "North_Field", "2006Jun15", '\\'),
            "C:\\K\\TrevaskData\\North_Field\\2006Jun15");
  EXPECT_EQ(ExportFolder("/k/TrevaskData/", "North_Field", "2006Jun15", '/'),
            "/k/TrevaskData/North_Field/2006Jun15");
  EXPECT_EQ(SetName("North_Field", "2006Jun15"), "North_Field_2006Jun15");
}

TEST(MakePath, MakesEveryFolderFromTheLeft) {
  test::MemoryFiles files;
  MakePath(files, "/data/North/2006Jun15", '/');
  EXPECT_THAT(files.made, ElementsAre("/data", "/data/North", "/data/North/2006Jun15"));
}

TEST(MakePath, UnderstandsDriveLetters) {
  test::MemoryFiles files;
  MakePath(files, "C:\\data\\North", '\\');
  EXPECT_THAT(files.made, ElementsAre("C:", "C:\\data", "C:\\data\\North"));
}

TEST(MakePath, LeavesServerAndShareAlone) {
  test::MemoryFiles files;
  MakePath(files, R"(\\NAS\sets\North\2006)", '\\');
  EXPECT_THAT(files.made, ElementsAre(R"(\\NAS\sets\North)", R"(\\NAS\sets\North\2006)"));
  files.made.clear();
  MakePath(files, R"(\\?\C:\data)", '\\');
  EXPECT_THAT(files.made, ElementsAre(R"(\\?\C:\data)"));
  files.made.clear();
  MakePath(files, R"(\\NAS\sets\)", '\\');
  MakePath(files, R"(\\NAS)", '\\');
  EXPECT_THAT(files.made, IsEmpty());
}

TEST(MakePath, DropsOneTrailingSeparator) {
  test::MemoryFiles files;
  MakePath(files, "a/b/", '/');
  EXPECT_THAT(files.made, ElementsAre("a", "a/b"));
}

TEST(MakePath, MakesNothingOfAnEmptyPath) {
  test::MemoryFiles files;
  MakePath(files, "", '/');
  MakePath(files, "/", '/');
  EXPECT_THAT(files.made, IsEmpty());
}

TEST(MakePath, DoesNotCatchAFailure) {
  test::MemoryFiles files;
  files.refused.insert("a/b");
  EXPECT_THROW(MakePath(files, "a/b/c", '/'), FileError);
  EXPECT_THAT(files.made, ElementsAre("a"));
}

}  // namespace
}  // namespace kestrin
