#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <thread>
#include <tuple>
#include <vector>

#include "base/temporaryName.h"
#include "shapefile/shapefileSet.h"
#include "tests/support/faultyFileSystem.h"
#include "tests/support/fork.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

/// What a set looks like from outside when the process or its disk gives way.

namespace kestrin::shapefile {
namespace {

using test::Child;
using test::Fork;
using test::Wait;

const std::array<Field, 1> kOneField{{{"ID", 'N', 8, 0}}};

void WriteSet(base::FileSystem& files, const std::string& base, int points, bool lasting = true) {
  RemoveSet(files, base);
  ShapefileSet set(files, base, ShapeType::kPoint, kOneField, {.lasting = lasting});
  for (int i = 0; i < points; ++i) set.AddPoint({1.0 * i, -1.0 * i}, "        0");
  set.Commit();
}

constexpr int kLeftNothing = 0;
constexpr int kLeftSomething = 1;
constexpr int kNoError = 2;
constexpr int kOtherError = 3;
constexpr int kCannotTest = 77;

/// Writes a set that does not fit and says how that ended.
int WriteTooMuch(const std::filesystem::path& folder, int code) {
  const std::string base = (folder / "base").string();
  try {
    WriteSet(*base::NativeFileSystem(), base, 100'000);
    return kNoError;
  } catch (const base::FileError& error) {
    if (error.Path().rfind(base + ".", 0) != 0) return kOtherError;
    if (error.Reason() != std::generic_category().message(code)) return kOtherError;
  }
  return std::filesystem::is_empty(folder) ? kLeftNothing : kLeftSomething;
}

TEST(SetProcess, KilledAtAnyMomentLeavesAWholeSetOrNoShapes) {
  const test::TempFolder folder;
  const std::string base = folder / "base";
  // How busy the disk is: a set must have time to become whole.
  using std::chrono::microseconds;
  const auto sinceBegun = [began = std::chrono::steady_clock::now()] {
    return std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - began);
  };
  WriteSet(*base::NativeFileSystem(), base, 5000);
  const microseconds took = sinceBegun();
  RemoveSet(*base::NativeFileSystem(), base);
  std::mt19937 random(7);
  std::uniform_int_distribution<microseconds::rep> moment(0, 20'000 + 5 * took.count());
  int whole = 0;
  for (int i = 0; i < 60 && (whole == 0 || sinceBegun() < std::chrono::seconds(20)); ++i) {
    const pid_t child = Fork([&]() -> int {
      const auto files = base::NativeFileSystem();
      for (int points = 1000;; points = points % 5000 + 1000) {
        WriteSet(*files, base, points);
        // Without a rest, hardly any moment finds a whole set.
        std::this_thread::sleep_for(microseconds(1000) + took / 4);
      }
    });
    std::this_thread::sleep_for(microseconds(moment(random)));
    kill(child, SIGKILL);
    ASSERT_EQ(Wait(child), -SIGKILL);
    if (!std::filesystem::exists(base + ".shp")) continue;
    ++whole;
    ASSERT_NO_THROW(test::ReadShapeSet(base)) << i;
  }
  // Otherwise nothing was tested.
  EXPECT_GT(whole, 0);
}

/// On the disk and in memory, with files that vanish and with named ones.
class SetKilled : public testing::TestWithParam<std::tuple<const char*, base::Unfinished>> {
 protected:
  void SetUp() override {
    if (mkdtemp(folder_.data()) == nullptr) GTEST_SKIP() << "no such folder here";
    const int file = open(folder_.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0600);
    if (HowUnfinished() == base::Unfinished::kVanish && file < 0) {
      GTEST_SKIP() << "no files without a name here";
    }
    close(file);
  }
  ~SetKilled() override { std::filesystem::remove_all(folder_); }

  std::set<std::string> Entries() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      names.insert(entry.path().filename());
    }
    return names;
  }

  base::Unfinished HowUnfinished() const { return std::get<1>(GetParam()); }

  std::string folder_ = std::get<0>(GetParam()) + std::string("/kestrin-test-XXXXXX");
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem(HowUnfinished());
};

TEST_P(SetKilled, LeavesAWholeSetOrNoShapesAndNothingElseAtEveryOperation) {
  const std::string base = folder_ + "/base";
  const std::set<std::string> whole{"base.dbf", "base.shp", "base.shx"};
  std::size_t temporary = 0;
  for (int operation = 1;; ++operation) {
    SCOPED_TRACE(operation);
    WriteSet(*files_, base, 1);
    const int code = Wait(Fork([&] {
      test::FaultyFileSystem faulty(*files_);
      faulty.FailAt(operation, test::FaultyFileSystem::Lasts::kKilled);
      WriteSet(faulty, base, 2);
      return 0;
    }));
    if (code == 0) break;
    ASSERT_EQ(code, -SIGKILL);
    std::set<std::string> left = Entries();
    if (left.contains("base.shp")) {
      EXPECT_LE(test::ReadShapeSet(base).records.size(), 2U);
    }
    temporary += std::erase_if(left, [](auto& name) { return base::IsTemporaryName(name); });
    EXPECT_TRUE(std::ranges::includes(whole, left)) << testing::PrintToString(left);
    WriteSet(*files_, base, 3);
    EXPECT_EQ(Entries(), whole) << "what the killed one left is still there";
  }
  // Named ones show that the sweep has something to do.
  EXPECT_EQ(temporary > 0, HowUnfinished() == base::Unfinished::kNamed) << temporary;
}

TEST_P(SetKilled, TwoThatWriteTheSameSetNeverMixTheirs) {
  const std::string base = folder_ + "/base";
  std::vector<Child> writers;
  for (const int points : {1, 5}) {
    writers.emplace_back(Fork([&]() -> int {
      for (;;) {
        WriteSet(*files_, base, points, false);
        std::this_thread::sleep_for(std::chrono::microseconds(300));
      }
    }));
  }
  std::map<std::size_t, int> seen;
  for (int i = 0; i < 20'000 && (seen[1] < 50 || seen[5] < 50); ++i) {
    std::this_thread::sleep_for(std::chrono::microseconds(500));
    const auto lock = files_->LockFolderOf(base);
    if (!files_->Exists(base + ".shp")) continue;
    ASSERT_NO_THROW(++seen[test::ReadShapeSet(base).records.size()]);
  }
  EXPECT_EQ(seen.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Drives, SetKilled,
                         testing::Combine(testing::Values("/var/tmp", "/dev/shm"),
                                          testing::Values(base::Unfinished::kVanish,
                                                          base::Unfinished::kNamed)));

TEST(SetProcess, FileSizeLimitIsAnErrorAndLeavesNothing) {
  const test::TempFolder folder;
  const int code = Wait(Fork([&] {
    const rlimit limit{1 << 20, 1 << 20};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return kCannotTest;
    return WriteTooMuch(folder.Path(), EFBIG);
  }));
  EXPECT_EQ(code, kLeftNothing);
}

TEST(SetProcess, FullDiskIsAnErrorAndLeavesNothing) {
  const test::TempFolder folder;
  const int code = Wait(Fork([&] {
    // A disk of its own, which nobody else sees and which goes with the process.
    const bool mounted = unshare(CLONE_NEWNS) == 0 &&
                         mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) == 0 &&
                         mount("tmpfs", folder.Path().c_str(), "tmpfs", 0, "size=1m") == 0;
    return mounted ? WriteTooMuch(folder.Path(), ENOSPC) : kCannotTest;
  }));
  if (code == kCannotTest) GTEST_SKIP() << "no file system can be mounted here";
  EXPECT_EQ(code, kLeftNothing);
}

TEST(SetProcess, FolderWithoutPermissionIsAnErrorAndLeavesNothing) {
  const test::TempFolder folder;
  std::filesystem::permissions(folder.Path(), std::filesystem::perms{0555});
  const int code = Wait(Fork([&] {
    if (geteuid() == 0 && setuid(65534) != 0) return kCannotTest;
    return WriteTooMuch(folder.Path(), EACCES);
  }));
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_all);
  if (code == kCannotTest) GTEST_SKIP() << "no other user can be taken on here";
  EXPECT_EQ(code, kLeftNothing);
}

TEST(SetProcess, MissingFolderIsAnError) {
  const test::TempFolder folder;
  const std::string base = folder / "none/base";
  try {
    WriteSet(*base::NativeFileSystem(), base, 1);
    FAIL();
  } catch (const base::FileError& error) {
    EXPECT_EQ(error.Path().rfind(base + ".", 0), 0U);
    EXPECT_EQ(error.Reason(), std::generic_category().message(ENOENT));
  }
}

TEST(SetProcess, FolderWrittenByManyThreadsAtOnce) {
  const test::TempFolder folder;
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&, i] {
      const auto files = base::NativeFileSystem();
      for (int j = 0; j < 4; ++j) WriteSet(*files, folder / ("base" + std::to_string(i)), 100 + i);
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (int i = 0; i < 8; ++i) {
    const test::ReadSet set = test::ReadShapeSet(folder / ("base" + std::to_string(i)));
    EXPECT_EQ(set.records.size(), 100U + static_cast<unsigned>(i));
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 24);
}

}  // namespace
}  // namespace kestrin::shapefile
