#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "app/platform/drives.h"
#include "tests/support/tempFolder.h"

namespace kestrin::platform {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(WindowsDrives, AreRootsInTheOrderOfTheirLetters) {
  const auto drives = NativeDrives()->List();
  ASSERT_FALSE(drives.empty());
  for (const Drive& drive : drives) {
    EXPECT_EQ(drive.root.size(), 3U);
    EXPECT_TRUE(drive.root.ends_with(":\\")) << drive.root;
  }
  EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end(),
                             [](const Drive& a, const Drive& b) { return a.root < b.root; }));
}

TEST(WindowsDrives, TheSystemsOwnIsNotRemovable) {
  for (const Drive& drive : NativeDrives()->List()) {
    EXPECT_FALSE(drive.root == "C:\\" && drive.removable);
  }
}

/// KESTRIN_STICK names the letter of a removable drive that holds "stick.sqlite",
/// KESTRIN_EMPTY_READER that of one without a medium.
TEST(WindowsDrives, AStickIsRemovableAndReadyAndAnEmptyReaderIsNotReady) {
  const char* stick = std::getenv("KESTRIN_STICK");
  const char* reader = std::getenv("KESTRIN_EMPTY_READER");
  if (stick == nullptr || reader == nullptr) GTEST_SKIP() << "no drives for tests";
  int seen = 0;
  const auto drives = NativeDrives();
  for (const Drive& drive : drives->List()) {
    if (drive.root[0] == *stick) {
      ++seen;
      EXPECT_TRUE(drive.removable && drive.ready);
      EXPECT_THAT(drives->FilesIn(drive.root), testing::Contains("stick.sqlite"));
    } else if (drive.root[0] == *reader) {
      ++seen;
      EXPECT_TRUE(drive.removable);
      EXPECT_FALSE(drive.ready);
    }
  }
  EXPECT_EQ(seen, 2);
}

TEST(WindowsDrives, FilesInAFolderLeaveOutFolders) {
  const test::TempFolder folder;
  std::ofstream(folder / "a.sqlite");
  std::ofstream(folder / "北.txt");
  std::filesystem::create_directory(folder / "b.sqlite");
  const auto drives = NativeDrives();
  EXPECT_THAT(drives->FilesIn(folder.Path().string()), UnorderedElementsAre("a.sqlite", "北.txt"));
  EXPECT_THAT(drives->FilesIn(folder / "nowhere"), IsEmpty());
}

}  // namespace
}  // namespace kestrin::platform
