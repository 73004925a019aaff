#include "app/flow/dataFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/app/flow/flowTest.h"

namespace kestrin::flow {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The program installed for all users: nobody may write in its folder.
struct InstalledForAll : test::FlowTest {
  InstalledForAll() {
    files.refused.insert(Own("/usr/lib/kestrin/TrevaskData"));
    files.made.clear();
    files.names.clear();
    flow.Form_Load(Own("/usr/lib/kestrin"), 0, [] {});
    window.Take();
  }
};

struct DataFolderRule : test::FlowTest {
  DataFolderRule() {
    files.made.clear();
    files.names.clear();
  }
  std::string Find(const std::string& documents) {
    return DataFolder(files, Own("/usr/lib/kestrin"), documents.empty() ? "" : Own(documents));
  }
};

TEST_F(DataFolderRule, LiesBesideTheProgramWhereItCanBeWrittenAndLeavesNothingThere) {
  EXPECT_EQ(Find("/home/user"), Own("/usr/lib/kestrin/TrevaskData/"));
  EXPECT_THAT(files.names, ElementsAre(Own("/usr/lib/kestrin/TrevaskData")));
}

TEST_F(DataFolderRule, LiesInTheDocumentsWhereTheOneBesideTheProgramIsSomebodyElses) {
  files.refused.insert(Own("/usr/lib/kestrin/TrevaskData/"));
  EXPECT_EQ(Find("/home/user/Documents/"), Own("/home/user/Documents/TrevaskData/"));
}

TEST_F(DataFolderRule, IsMadeWithTheDocumentsWhereTheyAreMissing) {
  files.refused.insert(Own("/usr/lib/kestrin/TrevaskData"));
  Find("/home/user/Documents");
  EXPECT_THAT(files.made, ElementsAre(Own("/home"), Own("/home/user"), Own("/home/user/Documents"),
                                      Own("/home/user/Documents/TrevaskData")));
}

TEST_F(DataFolderRule, StaysBesideTheProgramWhereTheDocumentsCannotBeWrittenOrAreNone) {
  files.refused.insert(Own("/usr/lib/kestrin/TrevaskData"));
  files.refused.insert(Own("/home/user/TrevaskData/"));
  EXPECT_EQ(Find("/home/user"), Own("/usr/lib/kestrin/TrevaskData/"));
  EXPECT_EQ(Find(""), Own("/usr/lib/kestrin/TrevaskData/"));
}

TEST_F(InstalledForAll, HasItsDataFolderInTheDocumentsFromTheStart) {
  EXPECT_EQ(state.applicationFolder, Own("/usr/lib/kestrin/"));
  EXPECT_EQ(state.dataFolder, Own("/home/user/Documents/TrevaskData/"));
  EXPECT_EQ(files.names.count(Own("/home/user/Documents/TrevaskData")), 1U);
}

TEST_F(InstalledForAll, StillAsksForTheFirstJobInTheProgramsFolder) {
  flow.Command3_Click();
  EXPECT_EQ(window.request.folder, Own("/usr/lib/kestrin/"));
}

TEST_F(InstalledForAll, TellsWhichSetsExistAndExportsInTheDocuments) {
  const std::string sets = Own("/home/user/Documents/TrevaskData/a/1999Aug22");
  files.AddSet(sets + Own("/a_1999Aug22_BOOM"));
  Select("a.sqlite");
  EXPECT_THAT(state.job.shapeExists, ElementsAre(false, true, false, false));
  window.chosen = sets + Own("/a_1999Aug22_WIRE.shp");
  flow.Command1_Click(0);
  EXPECT_EQ(window.request.folder, sets);
  EXPECT_EQ(files.names.count(sets), 1U);
}

TEST_F(InstalledForAll, AsksBeforeASecondExportOverwritesAlsoAfterTheJobWasSelectedAnew) {
  Select("a.sqlite");
  window.chosen = Own("/home/user/Documents/TrevaskData/a/1999Aug22/a_1999Aug22_WIRE.shp");
  flow.Command1_Click(0);
  EXPECT_THAT(window.CallsBeginning("AskYesNo"), IsEmpty());
  const auto set = window.chosen;
  window.chosen = state.job.JobPath();
  flow.Command3_Click();
  window.chosen = set;
  flow.Command1_Click(0);
  EXPECT_THAT(window.CallsBeginning("AskYesNo"), testing::SizeIs(1));
}

}  // namespace
}  // namespace kestrin::flow
