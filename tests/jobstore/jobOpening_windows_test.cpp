#include <gtest/gtest.h>
#include <windows.h>
// A leftover of 16-bit Windows, and a name of ours.
#undef Yield

#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

/// How jobs share a stick with other programs on Windows, and how far their paths go.

namespace kestrin {
namespace {

constexpr std::int32_t kCannotOpen = -14;

std::wstring Wide(const std::string& path) { return PathOf(path).wstring(); }

HANDLE OpenFor(const std::string& path, DWORD access, DWORD sharing) {
  return CreateFileW(Wide(path).c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
}

int Epochs(const std::string& path) {
  Job job(path);
  CountRow count;
  return job.IsOpen() && ReadFirst<EpochCount>(job, count) ? static_cast<int>(count.count) : -1;
}

std::string MakeJob(const std::string& path) {
  return test::JobBuilder(path).Epoch({1, 2}, 3, 4).Epoch({1, 3}, 3, 4).Finish();
}

TEST(JobOnAStick, IsReadWhileItsConsoleHasItOpenForWriting) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder / "job.sqlite");
  const HANDLE console =
      OpenFor(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
  ASSERT_NE(console, INVALID_HANDLE_VALUE);
  EXPECT_EQ(Epochs(path), 2);
  CloseHandle(console);
}

TEST(JobOnAStick, MayBeWrittenByItsConsoleWhileItIsRead) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder / "job.sqlite");
  Job job(path);
  const HANDLE console =
      OpenFor(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
  EXPECT_NE(console, INVALID_HANDLE_VALUE);
  CloseHandle(console);
}

TEST(JobOnAStick, IsLetGoOfWhenClosed) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder / "job.sqlite");
  EXPECT_EQ(Epochs(path), 2);
  const HANDLE alone = OpenFor(path, GENERIC_READ | GENERIC_WRITE | DELETE, 0);
  EXPECT_NE(alone, INVALID_HANDLE_VALUE);
  CloseHandle(alone);
}

TEST(JobOnAStick, HeldByAnotherProgramAloneIsANegativeHandle) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder / "job.sqlite");
  const HANDLE alone = OpenFor(path, GENERIC_READ, 0);
  EXPECT_EQ(Job(path).Handle(), kCannotOpen);
  CloseHandle(alone);
  EXPECT_EQ(Epochs(path), 2);
}

TEST(JobPath, OfAnyScriptAndBeyond260CharactersIsOpened) {
  const test::TempFolder folder;
  EXPECT_EQ(Epochs(MakeJob(folder / "Süd Acker 北 🚜.sqlite")), 2);
  const std::string path = MakeJob(folder / "job.sqlite");
  std::wstring deep = LR"(\\?\)" + folder.Path().wstring();
  for (int level = 0; level < 5; ++level) {
    deep += L'\\' + std::wstring(60, L'x');
    ASSERT_TRUE(CreateDirectoryW(deep.c_str(), nullptr));
  }
  ASSERT_TRUE(CopyFileW(Wide(path).c_str(), (deep + L"\\job.sqlite").c_str(), TRUE));
  EXPECT_EQ(Epochs(Utf8Of(deep.substr(4)) + "\\job.sqlite"), 2);
}

TEST(JobPath, OfADeviceIsRefusedInsteadOfWaitedFor) {
  for (const char* device : {"CON", "NUL", "COM1", R"(\\.\pipe\kestrin)"}) {
    EXPECT_EQ(Job(device).Handle(), kCannotOpen) << device;
  }
}

}  // namespace
}  // namespace kestrin
