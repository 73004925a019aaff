#include "app/flow/warnings.h"

#include <gtest/gtest.h>

namespace kestrin::flow {
namespace {

TEST(Warnings, UnknownFormatWordForWord) {
  EXPECT_EQ(UnknownFormatWarning("3.2.8"),
            "Job file Format 3.2.8 may be incompatible \r\n"
            "with Kestrin and might not display properly.");
}

TEST(Warnings, UnknownFormatOfAnEmptyVersion) {
  EXPECT_EQ(UnknownFormatWarning(""),
            "Job file Format  may be incompatible \r\n"
            "with Kestrin and might not display properly.");
}

TEST(Warnings, NewerJobWordForWord) {
  EXPECT_EQ(NewerJobWarning({1, 2, 3}, "3.3.0-1"),
            "Kestrin Version  1.2.3 may be incompatible with Job File Format 3.3.0-1\r\n"
            "and might not display properly.\r\n\r\n"
            "Visit www.kestrin.example to download the latest version of Kestrin.");
}

TEST(Warnings, TheVersionLabelHasTwoBlanks) {
  EXPECT_EQ(VersionCaption({1, 0, 0}), "Kestrin Version  1.0.0");
}

}  // namespace
}  // namespace kestrin::flow
