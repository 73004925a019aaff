#include <windows.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <thread>

#include "base/nativePath.h"
#include "base/paths.h"
#include "base/utf8Path.h"
#include "tests/support/windowsFiles.h"

/// What only Windows does: files that are in use stay, and long paths need care.

namespace kestrin::base {
namespace {

using test::InUse;
using test::WindowsFiles;

TEST_F(WindowsFiles, ATargetInUseIsAClearErrorAndStays) {
  const std::string to = Make("to");
  const auto replace = [&] {
    const auto file = files_->Create(to);
    file->WriteAt(0, "new");
    file->Publish();
  };
  {
    const InUse gis(to);
    EXPECT_EQ(Reason(to, replace), InUse::Reason());
    EXPECT_EQ(Reason(to, [&] { files_->Remove(to); }), InUse::Reason());
    EXPECT_EQ(test::FileBytes(to), "old");
  }
  replace();
  EXPECT_EQ(test::FileBytes(to), "new");
  // Neither attempt left anything else.
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1);
}

TEST_F(WindowsFiles, WhatIsInUseForAMomentIsWaitedFor) {
  const auto works = [&](const std::function<void(const std::string&)>& act) {
    const std::string to = Make("to");
    std::optional<InUse> scanner(std::in_place, to);
    const std::jthread done([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(80));
      scanner.reset();
    });
    return Reason(to, [&] { act(to); }) == "no failure";
  };
  // A busy machine may keep the scanner too long; never to wait fails each time.
  const auto worksOnce = [&](const auto& act) {
    for (int i = 0; i < 10; ++i) {
      if (works(act)) return true;
    }
    return false;
  };
  EXPECT_TRUE(worksOnce([&](auto& to) { files_->Create(to)->Publish(); }));
  EXPECT_TRUE(worksOnce([&](auto& to) { files_->RemoveAll(std::vector<std::string>{to}); }));
}

/// Where a process of its own, which is this program once more, is told what to write.
constexpr const wchar_t* kVictimsFile = L"KESTRIN_TEST_VICTIMS_FILE";

TEST(WindowsVictim, WritesAndIsKilled) {
  const wchar_t* path = _wgetenv(kVictimsFile);
  if (path == nullptr) GTEST_SKIP() << "part of another test";
  const bool named = _wgetenv(L"KESTRIN_TEST_NAMED") != nullptr;
  const auto files = NativeFileSystem(named ? Unfinished::kNamed : Unfinished::kVanish);
  const auto file = files->Create(Utf8Of(std::filesystem::path(path)));
  const auto lock = files->LockFolderOf(Utf8Of(std::filesystem::path(path)));
  file->WriteAt(0, "new");
  file->Sync();
  TerminateProcess(GetCurrentProcess(), 9);
}

void RunVictim() {
  wchar_t program[32768];
  GetModuleFileNameW(nullptr, program, 32768);
  std::wstring line = L"victim --gtest_filter=WindowsVictim.*";
  STARTUPINFOW how{};
  how.cb = sizeof how;
  PROCESS_INFORMATION victim{};
  ASSERT_TRUE(CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &how, &victim));
  WaitForSingleObject(victim.hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(victim.hProcess, &code);
  EXPECT_EQ(code, 9U);
  CloseHandle(victim.hThread);
  CloseHandle(victim.hProcess);
}

TEST_F(WindowsFiles, AKilledProcessLeavesNothingOrTheNextOneRemovesIt) {
  const std::string path = folder_ / "a";
  const auto count = [&] {
    return std::distance(std::filesystem::directory_iterator(folder_.Path()), {});
  };
  _wputenv_s(kVictimsFile, NativePath(path)->c_str());
  RunVictim();
  EXPECT_EQ(count(), 0) << "it vanishes with its process";
  _wputenv_s(L"KESTRIN_TEST_NAMED", L"1");
  RunVictim();
  EXPECT_EQ(count(), 1);
  _wputenv_s(L"KESTRIN_TEST_NAMED", L"");
  _wputenv_s(kVictimsFile, L"");
  EXPECT_TRUE(files_->LockFolderOf(path)) << "its lock went with it";
  files_->Create(path);
  EXPECT_EQ(count(), 0);
}

TEST_F(WindowsFiles, AJobInUseByItsConsoleIsCopied) {
  const std::string job = Make("job.sqlite");
  const HANDLE console =
      CreateFileW(NativePath(job)->c_str(), GENERIC_READ | GENERIC_WRITE,
                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  files_->Copy(job, folder_ / "copy.sqlite");
  CloseHandle(console);
  EXPECT_EQ(test::FileBytes(folder_ / "copy.sqlite"), "old");
}

TEST_F(WindowsFiles, ACopyOfAWriteProtectedJobCanBeWritten) {
  const std::string job = Make("job.sqlite");
  SetFileAttributesW(NativePath(job)->c_str(), FILE_ATTRIBUTE_READONLY);
  files_->Copy(job, folder_ / "copy.sqlite");
  SetFileAttributesW(NativePath(job)->c_str(), FILE_ATTRIBUTE_NORMAL);
  std::ofstream(folder_ / "copy.sqlite", std::ios::app) << "er";
  EXPECT_EQ(test::FileBytes(folder_ / "copy.sqlite"), "older");
}

TEST_F(WindowsFiles, FoldersAndFilesFarBeyond260CharactersAreMade) {
  std::string folder = folder_.Path().string() + "\\";
  for (int level = 0; level < 8; ++level) folder += std::string(60, 'x') + "\\";
  MakePath(*files_, folder);
  files_->Copy(Make("job.sqlite"), folder + "copy");
  EXPECT_TRUE(files_->Exists(folder + "copy"));
}

TEST_F(WindowsFiles, BothSeparatorsAndADrivesRootAreFolders) {
  MakePath(*files_, folder_.Path().string() + "\\a\\b");
  EXPECT_TRUE(files_->Exists(folder_.Path().string() + "/a/b"));
  files_->MakeFolder("C:");
  files_->MakeFolder("C:\\");
  EXPECT_TRUE(files_->Exists("C:\\"));
}

}  // namespace
}  // namespace kestrin::base
