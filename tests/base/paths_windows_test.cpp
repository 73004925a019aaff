#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/paths.h"
#include "tests/support/memoryFiles.h"

namespace kestrin::base {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(WindowsPaths, WithSeparatorKeepsADrivesRoot) {
  EXPECT_EQ(WithSeparator("C:\\"), "C:\\");
  EXPECT_EQ(WithSeparator("C:\\Kestrin"), "C:\\Kestrin\\");
}

TEST(WindowsPaths, MakePathUnderstandsDriveLetters) {
  test::MemoryFiles files;
  MakePath(files, "C:\\data\\North");
  EXPECT_THAT(files.made, ElementsAre("C:", "C:\\data", "C:\\data\\North"));
}

TEST(WindowsPaths, MakePathLeavesServerAndShareAlone) {
  test::MemoryFiles files;
  MakePath(files, R"(\\NAS\sets\North\2006)");
  EXPECT_THAT(files.made, ElementsAre(R"(\\NAS\sets\North)", R"(\\NAS\sets\North\2006)"));
  files.made.clear();
  MakePath(files, R"(\\?\C:\data)");
  EXPECT_THAT(files.made, ElementsAre(R"(\\?\C:\data)"));
  files.made.clear();
  MakePath(files, R"(\\NAS\sets\)");
  MakePath(files, R"(\\NAS)");
  EXPECT_THAT(files.made, IsEmpty());
}

}  // namespace
}  // namespace kestrin::base
