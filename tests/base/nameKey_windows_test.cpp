#include "base/nameKey.h"

#include <gtest/gtest.h>

namespace kestrin::base {
namespace {

TEST(NameKey, DoesNotTellLettersCaseApart) {
  EXPECT_EQ(NameKey("E:\\Süd.sqlite"), NameKey("e:\\SÜD.SQLITE"));
  EXPECT_NE(NameKey("a"), NameKey("b"));
}

}  // namespace
}  // namespace kestrin::base
