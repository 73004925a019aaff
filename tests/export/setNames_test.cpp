#include "export/setNames.h"

#include <gtest/gtest.h>

namespace kestrin::exports {
namespace {

TEST(SetNames, JobNameIsTheFileNameWithoutItsExtension) {
  const base::SplitPath job = JobNameOf("C:\\jobs\\North.Field.sqlite", '\\');
  EXPECT_EQ(job.folder, "C:\\jobs\\");
  EXPECT_EQ(job.name, "North.Field");
  EXPECT_EQ(JobNameOf("/jobs/North.Field.sqlite", '/').folder, "/jobs/");
  EXPECT_EQ(JobNameOf("/jobs/North.Field.sqlite", '/').name, "North.Field");
}

TEST(SetNames, JobNameKeepsAnExtensionInOtherLetters) {
  EXPECT_EQ(JobNameOf("/jobs/a.SQLITE", '/').name, "a.SQLITE");
}

TEST(SetNames, JobNameLosesEveryExtensionEvenOfAFolder) {
  EXPECT_EQ(JobNameOf("/x.sqlite/a.sqlite.sqlite", '/').folder, "/x/");
  EXPECT_EQ(JobNameOf("/x.sqlite/a.sqlite.sqlite", '/').name, "a");
}

TEST(SetNames, AFileNameAloneHasNoFolder) {
  EXPECT_EQ(JobNameOf("a.sqlite", '/').folder, "");
  EXPECT_EQ(JobNameOf("a.sqlite", '/').name, "a");
  EXPECT_EQ(JobNameOf("jobs/a.sqlite", '\\').folder, "");
}

TEST(SetNames, FileSafeNameHasNoDots) {
  EXPECT_EQ(FileSafeName("North.Field"), "North_Field");
  EXPECT_EQ(FileSafeName("..a."), "__a_");
}

TEST(SetNames, ExportFolderAndSetNameComeFromNameAndDate) {
  EXPECT_EQ(ExportFolder("C:\\K\\TrevaskData\\", "North_Field", "2006Jun15", '\\'),
            "C:\\K\\TrevaskData\\North_Field\\2006Jun15");
  EXPECT_EQ(ExportFolder("/k/TrevaskData/", "North_Field", "2006Jun15", '/'),
            "/k/TrevaskData/North_Field/2006Jun15");
  EXPECT_EQ(SetName("North_Field", "2006Jun15"), "North_Field_2006Jun15");
}

}  // namespace
}  // namespace kestrin::exports
