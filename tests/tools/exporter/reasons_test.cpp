#include "tools/exporter/reasons.h"

#include <gtest/gtest.h>

#include <fstream>

#include "export/exportRun.h"
#include "export/outcomeTexts.h"
#include "tests/support/tempFolder.h"

namespace kestrin::exporter {
namespace {

TEST(Reasons, StandBehindTheCodesOfJobsThatCannotBeRead) {
  EXPECT_EQ(WithReason(exports::NotPreparedText(-26), "a"),
            "Error creating statement: -26 (not a database)");
  EXPECT_EQ(WithReason(exports::NotReadToEndText({.lastStep = 10}, 0), "a"),
            "The job could not be read to its end: no set made, code 10 (the disk or stick cannot "
            "be read)");
  EXPECT_EQ(ReasonIn(exports::NotOpenedText(-5), "a").code, -5);
}

TEST(Reasons, AMissingFileIsToldFromOneThatMayNotBeRead) {
  const test::TempFolder folder;
  std::ofstream(folder / "there.sqlite") << "x";
  const std::string text = exports::NotOpenedText(-14);
  EXPECT_EQ(WithReason(text, folder / "gone.sqlite"), "Error opening: -14 (no such file)");
  EXPECT_EQ(WithReason(text, folder / "there.sqlite"), "Error opening: -14 (it may not be read)");
}

TEST(Reasons, ACodeThatNothingIsKnownOfHasNoWords) {
  EXPECT_EQ(WithReason("Error opening: -99", "a"), "Error opening: -99");
  EXPECT_EQ(ReasonIn("Error opening: -99", "a").code, -99);
}

// One text names the statement that was prepared last instead of a failure.
TEST(Reasons, AStatementsNumberIsNoCode) {
  EXPECT_EQ(WithReason("Error creating statement: 1", "a"), "Error creating statement: 1");
}

TEST(Reasons, TextsWithReasonsOfTheirOwnStayAsTheyAre) {
  for (const char* text : {"Error writing: /a 11: File too large 11", "No set made: 5", "",
                           "Error opening: no number"}) {
    EXPECT_EQ(WithReason(text, "a"), text);
    EXPECT_EQ(ReasonIn(text, "a").code, std::nullopt);
  }
}

}  // namespace
}  // namespace kestrin::exporter
