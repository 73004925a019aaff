#include "base/nameKey.h"

#include <gtest/gtest.h>

namespace kestrin::base {
namespace {

TEST(NameKey, TellsLettersCaseApart) { EXPECT_NE(NameKey("a/North"), NameKey("a/NORTH")); }

}  // namespace
}  // namespace kestrin::base
