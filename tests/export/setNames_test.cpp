#include "export/setNames.h"

#include <gtest/gtest.h>

#include "base/utf8Path.h"

namespace kestrin::exports {
namespace {

std::string Own(const std::string& path) { return base::WithOwnSeparators(path); }

TEST(SetNames, JobFilesAreThoseThatEndInTheExtension) {
  EXPECT_TRUE(IsJobFile("North.Field.sqlite"));
  EXPECT_FALSE(IsJobFile("North.sqlite.tmp"));
  EXPECT_FALSE(IsJobFile("northsqlite"));
  // As two names that differ in letters' case alone are one file or two.
  EXPECT_EQ(IsJobFile("NORTH.SQLITE"), base::kSeparator == '\\');
}

TEST(SetNames, JobNameIsTheFileNameWithoutItsExtension) {
  const base::SplitPath job = JobNameOf(Own("C:/jobs/North.Field.sqlite"));
  EXPECT_EQ(job.folder, Own("C:/jobs/"));
  EXPECT_EQ(job.name, "North.Field");
}

TEST(SetNames, JobNameKeepsAnExtensionInOtherLetters) {
  EXPECT_EQ(JobNameOf(Own("/jobs/a.SQLITE")).name, "a.SQLITE");
}

TEST(SetNames, JobNameLosesEveryExtensionEvenOfAFolder) {
  const base::SplitPath job = JobNameOf(Own("/x.sqlite/a.sqlite.sqlite"));
  EXPECT_EQ(job.folder, Own("/x/"));
  EXPECT_EQ(job.name, "a");
}

TEST(SetNames, AFileNameAloneHasNoFolder) {
  EXPECT_EQ(JobNameOf("a.sqlite").folder, "");
  EXPECT_EQ(JobNameOf("a.sqlite").name, "a");
}

TEST(SetNames, FileSafeNameHasNoDots) {
  EXPECT_EQ(FileSafeName("North.Field"), "North_Field");
  EXPECT_EQ(FileSafeName("..a."), "__a_");
}

TEST(SetNames, ExportFolderAndBasePathComeFromNameAndDate) {
  const std::string folder = ExportFolder(Own("/k/TrevaskData/"), "North_Field", "2006Jun15");
  EXPECT_EQ(folder, Own("/k/TrevaskData/North_Field/2006Jun15"));
  EXPECT_EQ(DefaultBasePath(folder, "North_Field", "2006Jun15"),
            Own("/k/TrevaskData/North_Field/2006Jun15/North_Field_2006Jun15"));
}

}  // namespace
}  // namespace kestrin::exports
