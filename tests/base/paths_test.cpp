#include "base/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/memoryFiles.h"

namespace kestrin::base {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Paths, WithSeparatorAddsOneWhereThereIsNone) {
  EXPECT_EQ(WithSeparator("C:\\Kestrin", '\\'), "C:\\Kestrin\\");
  EXPECT_EQ(WithSeparator("C:\\", '\\'), "C:\\");
  EXPECT_EQ(WithSeparator("/opt/kestrin", '/'), "/opt/kestrin/");
  EXPECT_EQ(WithSeparator("/", '/'), "/");
}

TEST(MakePath, MakesEveryFolderFromTheLeft) {
  test::MemoryFiles files;
  MakePath(files, "/data/North/2006Jun15", '/');
  EXPECT_THAT(files.made, ElementsAre("/data", "/data/North", "/data/North/2006Jun15"));
}

TEST(MakePath, UnderstandsDriveLetters) {
  test::MemoryFiles files;
  MakePath(files, "C:\\data\\North", '\\');
  EXPECT_THAT(files.made, ElementsAre("C:", "C:\\data", "C:\\data\\North"));
}

TEST(MakePath, LeavesServerAndShareAlone) {
  test::MemoryFiles files;
  MakePath(files, R"(\\NAS\sets\North\2006)", '\\');
  EXPECT_THAT(files.made, ElementsAre(R"(\\NAS\sets\North)", R"(\\NAS\sets\North\2006)"));
  files.made.clear();
  MakePath(files, R"(\\?\C:\data)", '\\');
  EXPECT_THAT(files.made, ElementsAre(R"(\\?\C:\data)"));
  files.made.clear();
  MakePath(files, R"(\\NAS\sets\)", '\\');
  MakePath(files, R"(\\NAS)", '\\');
  EXPECT_THAT(files.made, IsEmpty());
}

TEST(MakePath, DropsOneTrailingSeparator) {
  test::MemoryFiles files;
  MakePath(files, "a/b/", '/');
  EXPECT_THAT(files.made, ElementsAre("a", "a/b"));
}

TEST(MakePath, MakesNothingOfAnEmptyPath) {
  test::MemoryFiles files;
  MakePath(files, "", '/');
  MakePath(files, "/", '/');
  EXPECT_THAT(files.made, IsEmpty());
}

TEST(MakePath, DoesNotCatchAFailure) {
  test::MemoryFiles files;
  files.refused.insert("a/b");
  EXPECT_THROW(MakePath(files, "a/b/c", '/'), FileError);
  EXPECT_THAT(files.made, ElementsAre("a"));
}

}  // namespace
}  // namespace kestrin::base
