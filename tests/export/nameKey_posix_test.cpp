#include "export/nameKey.h"

#include <gtest/gtest.h>

namespace kestrin {
namespace {

TEST(NameKey, TellsLettersCaseApart) { EXPECT_NE(NameKey("a/North"), NameKey("a/NORTH")); }

}  // namespace
}  // namespace kestrin
