#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <random>
#include <thread>

#include "shapefile/shapefileSet.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

/// What a set looks like from outside when the process or its disk gives way.

namespace kestrin::shapefile {
namespace {

const std::array<Field, 1> kOneField{{{"ID", 'N', 8, 0}}};

void WriteSet(base::FileSystem& files, const std::string& base, int points) {
  RemoveSet(files, base);
  ShapefileSet set(files, base, ShapeType::kPoint, kOneField, {});
  for (int i = 0; i < points; ++i) set.AddPoint({1.0 * i, -1.0 * i}, "        0");
  set.Commit();
}

/// Runs `action` in a process of its own, which ends with what it returns.
pid_t Fork(const std::function<int()>& action) {
  const pid_t child = fork();
  if (child == 0) {
    int code = 99;
    try {
      code = action();
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(code);
  }
  return child;
}

/// The exit code, or a signal's number made negative.
int Wait(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
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
  std::mt19937 random(7);
  std::uniform_int_distribution<int> microseconds(0, 40'000);
  int whole = 0;
  for (int i = 0; i < 60; ++i) {
    const pid_t child = Fork([&]() -> int {
      const auto files = base::NativeFileSystem();
      for (int points = 1000;; points = points % 5000 + 1000) {
        WriteSet(*files, base, points);
        // Without a rest, hardly any moment finds a whole set.
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
    });
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
    kill(child, SIGKILL);
    ASSERT_EQ(Wait(child), -SIGKILL);
    if (!std::filesystem::exists(base + ".shp")) continue;
    ++whole;
    ASSERT_NO_THROW(test::ReadShapeSet(base)) << i;
  }
  // Otherwise nothing was tested.
  EXPECT_GT(whole, 0);
}

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
                         mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
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
