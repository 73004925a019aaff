#include "base/loopYield.h"

#include <gtest/gtest.h>

#include "base/runHost.h"

namespace kestrin::base {
namespace {

TEST(LoopYield, YieldsOnceInSixtyFourStepsOfAllItsLoops) {
  int yields = 0;
  LoopYield yield([&] { ++yields; });
  for (int i = 0; i < 63; ++i) yield.Step();
  EXPECT_EQ(yields, 0);
  yield.Step();
  EXPECT_EQ(yields, 1);
  for (int i = 0; i < 640; ++i) yield.Step();
  EXPECT_EQ(yields, 11);
}

TEST(LoopYield, YieldsAtOnceWhereAStepIsLong) {
  int yields = 0;
  LoopYield yield([&] { ++yields; });
  yield.Now();
  EXPECT_EQ(yields, 1);
}

TEST(LoopYield, LetsACancelPass) {
  LoopYield yield([] { throw RunCancelled(); });
  EXPECT_THROW(yield.Now(), RunCancelled);
}

}  // namespace
}  // namespace kestrin::base
