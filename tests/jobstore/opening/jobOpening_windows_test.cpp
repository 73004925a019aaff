#include <gtest/gtest.h>
#include <windows.h>
// A leftover of 16-bit Windows, and a name of ours.
#undef Yield

#include "jobstore/job.h"
#include "jobstore/opening/jobFile.h"
#include "jobstore/queries.h"
#include "tests/jobstore/opening/jobStates.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

/// How jobs share a stick with other programs on Windows, and how far their paths go.

namespace kestrin::opening {
namespace {

constexpr std::int32_t kCannotOpen = -14;

std::wstring Wide(const std::string& path) { return base::PathOf(path).wstring(); }

HANDLE OpenFor(const std::string& path, DWORD access, DWORD sharing) {
  return CreateFileW(Wide(path).c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
}

int Epochs(const std::string& path) {
  jobstore::Job job(path);
  std::int32_t count = 0;
  return job.IsOpen() && jobstore::ReadFirst<jobstore::EpochCount>(job, count)
             ? static_cast<int>(count)
             : -1;
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
  jobstore::Job job(path);
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

TEST(JobOnAStick, HeldByAnotherProgramAloneIsANegativeResult) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder / "job.sqlite");
  const HANDLE alone = OpenFor(path, GENERIC_READ, 0);
  EXPECT_EQ(jobstore::Job(path).Result(), kCannotOpen);
  CloseHandle(alone);
  EXPECT_EQ(Epochs(path), 2);
}

TEST(JobPath, OfAnyScriptIsOpened) {
  const test::TempFolder folder;
  EXPECT_EQ(Epochs(MakeJob(folder / "Süd Acker 北 🚜.sqlite")), 2);
}

constexpr test::JobState kJobStates[] = {
    test::JobState::kAtRest,        test::JobState::kJournalKept,
    test::JobState::kJournalEmpty,  test::JobState::kCutOff,
    test::JobState::kWriteAhead,    test::JobState::kWriteAheadEmpty,
    test::JobState::kWriteAheadLog, test::JobState::kWriteAheadIndexed};

/// A folder below `folder` whose path is marked as long and has `levels` more of 60
/// characters.
std::wstring DeepFolder(const test::TempFolder& folder, int levels, wchar_t character) {
  std::wstring deep = LR"(\\?\)" + Wide(folder / "deep");
  CreateDirectoryW(deep.c_str(), nullptr);
  for (int level = 0; level < levels; ++level) {
    deep += L'\\' + std::wstring(60, character);
    EXPECT_TRUE(CreateDirectoryW(deep.c_str(), nullptr));
  }
  return deep;
}

/// What a job made in `folder` consists of, laid into another one; returns the job there.
std::wstring LayInto(const std::wstring& to, const std::string& job) {
  for (const wchar_t* suffix : {L"", L"-journal", L"-wal", L"-shm"}) {
    CopyFileW((Wide(job) + suffix).c_str(), (to + L"\\job.sqlite" + suffix).c_str(), TRUE);
  }
  return to + L"\\job.sqlite";
}

TEST(JobPath, BeyondTheUsualLimitIsOpenedHoweverTheJobWasLeft) {
  for (const test::JobState state : kJobStates) {
    const test::TempFolder folder;
    const std::wstring job =
        LayInto(DeepFolder(folder, 5, L'x'), test::MakeJob(folder.Path(), state));
    EXPECT_EQ(Epochs(base::Utf8Of(job)), test::kStateEpochs) << static_cast<int>(state);
    EXPECT_EQ(Epochs(base::Utf8Of(job.substr(4))), test::kStateEpochs) << static_cast<int>(state);
  }
}

TEST(JobPath, BeyondAThousandBytesIsOpened) {
  const test::TempFolder folder;
  const std::wstring deep = DeepFolder(folder, 7, L'北');
  for (const test::JobState state : {test::JobState::kAtRest, test::JobState::kWriteAheadLog}) {
    const test::TempFolder workshop;
    const std::wstring job = LayInto(deep, test::MakeJob(workshop.Path(), state));
    EXPECT_GT(base::Utf8Of(job).size(), 1040U);
    EXPECT_EQ(Epochs(base::Utf8Of(job)), test::kStateEpochs);
    for (const wchar_t* suffix : {L"", L"-wal"}) DeleteFileW((job + suffix).c_str());
  }
}

TEST(JobPath, MarkedAsLongIsOpenedThoughItIsShort) {
  for (const test::JobState state : kJobStates) {
    const test::TempFolder folder;
    const std::string path = test::MakeJob(folder.Path(), state);
    EXPECT_EQ(Epochs(R"(\\?\)" + base::WithOwnSeparators(path)), test::kStateEpochs);
  }
}

TEST(JobPath, OfAFileIsAbsoluteAndWithoutTheMark) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder / "job.sqlite");
  const std::string whole = base::WithOwnSeparators(path);
  EXPECT_EQ(base::Utf8Of(JobFile(path)), whole);
  EXPECT_EQ(base::Utf8Of(JobFile(R"(\\?\)" + whole)), whole);
  EXPECT_TRUE(JobFile(base::Utf8Of(folder.Path())).empty());
  EXPECT_TRUE(JobFile(folder / "missing").empty());
  EXPECT_TRUE(JobFile("\xff").empty());
}

TEST(JobPath, IsHandedToTheLibraryWithSlashesUnlessItIsMarked) {
  EXPECT_EQ(LibraryText(base::PathOf(R"(C:\jobs\job)")), "C:/jobs/job");
  EXPECT_EQ(LibraryText(base::PathOf(R"(\\NAS\jobs\job)")), "//NAS/jobs/job");
  EXPECT_EQ(LibraryText(base::PathOf(R"(\\?\UNC\NAS\jobs\job)")), R"(\\?\UNC\NAS\jobs\job)");
}

TEST(JobSize, IsThatOfNowWhileAnotherProgramWrites) {
  const test::TempFolder folder;
  const std::string path = folder / "job.sqlite-wal";
  const HANDLE console = CreateFileW(Wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                     CREATE_NEW, 0, nullptr);
  ASSERT_NE(console, INVALID_HANDLE_VALUE);
  EXPECT_EQ(SizeOf(base::PathOf(path)), 0U);
  DWORD written = 0;
  EXPECT_TRUE(WriteFile(console, "12345", 5, &written, nullptr));
  EXPECT_EQ(SizeOf(base::PathOf(path)), 5U);
  CloseHandle(console);
}

TEST(JobSize, IsReadThoughAnotherProgramHasTheFileAlone) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder / "job.sqlite");
  const std::uintmax_t size = test::FileBytes(path).size();
  const HANDLE alone = OpenFor(path, GENERIC_READ | GENERIC_WRITE, 0);
  EXPECT_EQ(SizeOf(base::PathOf(path)), size);
  CloseHandle(alone);
}

TEST(JobSize, OfAFolderOrAMissingFileIsZero) {
  const test::TempFolder folder;
  EXPECT_EQ(SizeOf(folder.Path()), 0U);
  EXPECT_EQ(SizeOf(base::PathOf(folder / "missing")), 0U);
}

TEST(JobCopyOnWindows, NeverReplacesAFileAndTellsOfAFullDisk) {
  const test::TempFolder folder;
  const std::string path = MakeJob(folder / "job.sqlite");
  std::error_code error;
  EXPECT_FALSE(CopyTo(base::PathOf(path), base::PathOf(path), error));
  EXPECT_TRUE(error);
  EXPECT_TRUE(CopyTo(base::PathOf(path), base::PathOf(folder / "copy"), error));
  EXPECT_FALSE(error);
  // What a copy is refused with when there is no room for it.
  EXPECT_EQ(std::error_code(ERROR_DISK_FULL, std::system_category()),
            std::errc::no_space_on_device);
}

TEST(JobPath, OfADeviceIsRefusedInsteadOfWaitedFor) {
  for (const char* device : {"CON", "NUL", "COM1", R"(\\.\pipe\kestrin)"}) {
    EXPECT_EQ(jobstore::Job(device).Result(), kCannotOpen) << device;
  }
}

}  // namespace
}  // namespace kestrin::opening
