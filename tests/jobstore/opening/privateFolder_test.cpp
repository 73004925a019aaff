#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

#include "jobstore/opening/privateCopy.h"
#include "tests/support/setting.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

TEST(PrivateFolderInUse, StaysWhenTheNextOneIsMade) {
  const test::TempFolder root;
  // One of them is the system's word for it.
  const test::Setting one("TMPDIR", root.Path().string());
  const test::Setting other("TMP", root.Path().string());
  const PrivateFolder first;
  { const PrivateFolder second; }
  EXPECT_TRUE(std::filesystem::exists(first.Path()));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(root.Path()), {}), 1);
}

}  // namespace
}  // namespace kestrin::opening
