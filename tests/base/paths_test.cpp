#include "base/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/utf8Path.h"
#include "tests/support/memoryFiles.h"

namespace kestrin::base {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Own(const std::string& path) { return WithOwnSeparators(path); }

TEST(Paths, WithSeparatorAddsOneWhereThereIsNone) {
  EXPECT_EQ(WithSeparator(Own("/opt/kestrin")), Own("/opt/kestrin/"));
  EXPECT_EQ(WithSeparator(Own("/")), Own("/"));
  EXPECT_EQ(WithSeparator(""), Own("/"));
}

TEST(Paths, AreCutBehindTheSystemsOwnSeparatorAlone) {
  const char another = kSeparator == '/' ? '\\' : '/';
  const std::string name = std::string("a") + another + "b";
  const SplitPath split = SplitAtLastSeparator(Own("/x/y/") + name);
  EXPECT_EQ(split.folder, Own("/x/y/"));
  EXPECT_EQ(split.name, name);
  EXPECT_EQ(SplitAtLastSeparator(name).folder, "");
  EXPECT_EQ(SplitAtLastSeparator(name).name, name);
}

TEST(MakePath, MakesEveryFolderFromTheLeft) {
  test::MemoryFiles files;
  MakePath(files, Own("/data/North/2006Jun15"));
  EXPECT_THAT(files.made,
              ElementsAre(Own("/data"), Own("/data/North"), Own("/data/North/2006Jun15")));
}

TEST(MakePath, DropsOneTrailingSeparator) {
  test::MemoryFiles files;
  MakePath(files, Own("a/b/"));
  EXPECT_THAT(files.made, ElementsAre("a", Own("a/b")));
}

TEST(MakePath, MakesNothingOfAnEmptyPath) {
  test::MemoryFiles files;
  MakePath(files, "");
  MakePath(files, Own("/"));
  EXPECT_THAT(files.made, IsEmpty());
}

TEST(MakePath, DoesNotCatchAFailure) {
  test::MemoryFiles files;
  files.refused.insert(Own("a/b"));
  EXPECT_THROW(MakePath(files, Own("a/b/c")), FileError);
  EXPECT_THAT(files.made, ElementsAre("a"));
}

}  // namespace
}  // namespace kestrin::base
