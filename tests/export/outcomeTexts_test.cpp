#include "export/outcomeTexts.h"

#include <gtest/gtest.h>

#include <new>

namespace kestrin::exports {
namespace {

TEST(OutcomeTexts, SayHowManyOfHowManyEpochsASetHolds) {
  const ExportOutcome outcome{.made = true, .epochs = 1234, .lastStep = 11};
  EXPECT_EQ(NotReadToEndText(outcome, 5000),
            "The job could not be read to its end: the set holds 1234 of 5000 epochs, code 11");
}

TEST(OutcomeTexts, SayThatNobodyKnowsHowManyEpochsADamagedJobHas) {
  const ExportOutcome outcome{.made = true, .epochs = 1234, .lastStep = 11};
  for (const std::int64_t total : {0, 1233}) {
    EXPECT_EQ(NotReadToEndText(outcome, total),
              "The job could not be read to its end: the set holds 1234 epochs of an unknown "
              "number, code 11");
  }
}

TEST(OutcomeTexts, SayHowManyEpochsAlsoWhereTheErrorCameBehindTheLast) {
  const ExportOutcome outcome{.made = true, .epochs = 1, .lastStep = 11};
  EXPECT_EQ(NotReadToEndText(outcome, 1),
            "The job could not be read to its end: the set holds 1 of 1 epochs, code 11");
}

TEST(OutcomeTexts, SayThatNobodyKnowsHowManyEpochsThereAreWhereNoneWasRead) {
  EXPECT_EQ(NotReadToEndText({.made = true, .epochs = 0, .lastStep = 11}, 0),
            "The job could not be read to its end: the set holds 0 epochs of an unknown number, "
            "code 11");
}

TEST(OutcomeTexts, SayThatNoSetCameOfAJobThatCouldNotBeRead) {
  EXPECT_EQ(NotReadToEndText({.lastStep = 10}, 5000),
            "The job could not be read to its end: no set made, code 10");
}

// The window shows these as they are: words for the numbers are the terminal's alone.
TEST(OutcomeTexts, ShowTheNumberOfWhatCannotBeOpenedOrQueriedAndNothingElse) {
  EXPECT_EQ(NotOpenedText(-14), "Error opening: -14");
  EXPECT_EQ(NotPreparedText(-26), "Error creating statement: -26");
}

TEST(OutcomeTexts, NameTheKindThatWasNotMadeAndWhy) {
  EXPECT_EQ(NotMadeText("boom", SubscriptError("the job has no reference location")),
            "No boom set made: the job has no reference location");
  EXPECT_EQ(NotMadeText("wire", std::bad_alloc()), "No wire set made: out of memory");
}

TEST(OutcomeTexts, NameTheFileThatWasNotWrittenAndWhy) {
  EXPECT_EQ(NotWrittenText(base::FileError("/out/a.shp", "Permission denied")),
            "Error writing: /out/a.shp: Permission denied");
}

}  // namespace
}  // namespace kestrin::exports
