#include "app/flow/formatVersion.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace kestrin::flow {
namespace {

TEST(FormatVersion, ItsOwnFormatIsCompatible) {
  EXPECT_EQ(CompareFormat("3.2.8-1"), FormatAge::kCompatible);
}

TEST(FormatVersion, OlderIsCompatible) {
  EXPECT_EQ(CompareFormat("3.2.7-9"), FormatAge::kCompatible);
  EXPECT_EQ(CompareFormat("3.2.8-0"), FormatAge::kCompatible);
}

TEST(FormatVersion, ALaterReleaseOrFormatIsNewer) {
  EXPECT_EQ(CompareFormat("3.2.8-2"), FormatAge::kNewer);
  EXPECT_EQ(CompareFormat("3.3.0-1"), FormatAge::kNewer);
  EXPECT_EQ(CompareFormat("3.2.9-0"), FormatAge::kNewer);
}

TEST(FormatVersion, DotsAreTakenOutAndSeparateNothing) {
  EXPECT_EQ(CompareFormat("3.2.10-1"), FormatAge::kNewer);    // 3210
  EXPECT_EQ(CompareFormat("4.0-1"), FormatAge::kCompatible);  // 40
  EXPECT_EQ(CompareFormat("328-1"), FormatAge::kCompatible);
  EXPECT_EQ(CompareFormat("3.28-2"), FormatAge::kNewer);
}

TEST(FormatVersion, WithoutExactlyOneDashItIsUnknown) {
  EXPECT_EQ(CompareFormat("3.2.8"), FormatAge::kUnknown);
  EXPECT_EQ(CompareFormat("3.2.8-1-2"), FormatAge::kUnknown);
  EXPECT_EQ(CompareFormat("3.2.8--1"), FormatAge::kUnknown);
  EXPECT_EQ(CompareFormat(""), FormatAge::kUnknown);
  EXPECT_EQ(CompareFormat("beta"), FormatAge::kUnknown);
}

TEST(FormatVersion, WithNothingBehindTheDashItIsUnknown) {
  EXPECT_EQ(CompareFormat("3.2.8-"), FormatAge::kUnknown);
  EXPECT_EQ(CompareFormat("-"), FormatAge::kUnknown);
}

TEST(FormatVersion, APartThatIsNoNumberIsAnError) {
  for (const char* text :
       {"-1", "a.b-1", "3.2.8-beta", "3.2.8-1b", "3 2.8-1", ".-1", "3.2.8-inf", "3.2.8-nan"}) {
    EXPECT_THROW(CompareFormat(text), FormatNumberError) << text;
  }
}

TEST(FormatVersion, APartBeyond32BitsIsAnError) {
  EXPECT_EQ(CompareFormat("2.1.4.7.4.8.3.6.4.7-1"), FormatAge::kNewer);
  EXPECT_THROW(CompareFormat("2.1.4.7.4.8.3.6.4.8-1"), FormatNumberError);
  EXPECT_THROW(CompareFormat("3.2.8-99999999999"), FormatNumberError);
}

TEST(FormatVersion, NumbersAreReadAsPeopleWriteThem) {
  EXPECT_EQ(CompareFormat("3.2.8 - 1"), FormatAge::kCompatible);
  EXPECT_EQ(CompareFormat("3.2.8-+2"), FormatAge::kNewer);
  EXPECT_EQ(CompareFormat("3.2.8-1.4"), FormatAge::kCompatible);
}

}  // namespace
}  // namespace kestrin::flow
