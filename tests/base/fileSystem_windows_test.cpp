#include <windows.h>

#include <chrono>
#include <fstream>
#include <optional>
#include <thread>

#include "base/nativePath.h"
#include "base/paths.h"
#include "tests/support/windowsFiles.h"

/// What only Windows does: files that are in use stay, and long paths need care.

namespace kestrin::base {
namespace {

using test::InUse;
using test::WindowsFiles;

TEST_F(WindowsFiles, ATargetInUseIsAClearErrorAndStays) {
  const std::string from = Make("from", "new");
  const std::string to = Make("to");
  {
    const InUse gis(to);
    EXPECT_EQ(Reason(to, [&] { files_->Rename(from, to); }), InUse::Reason());
    EXPECT_EQ(Reason(to, [&] { files_->Remove(to); }), InUse::Reason());
    EXPECT_EQ(test::FileBytes(to), "old");
  }
  files_->Rename(from, to);
  EXPECT_EQ(test::FileBytes(to), "new");
}

TEST_F(WindowsFiles, WhatIsInUseForAMomentIsWaitedFor) {
  const auto works = [&](const std::function<void(const std::string&, const std::string&)>& act) {
    const std::string from = Make("from", "new");
    const std::string to = Make("to");
    std::optional<InUse> scanner(std::in_place, to);
    const std::jthread done([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(80));
      scanner.reset();
    });
    return Reason(to, [&] { act(from, to); }) == "no failure";
  };
  // A busy machine may keep the scanner too long; never to wait fails each time.
  const auto worksOnce = [&](const auto& act) {
    for (int i = 0; i < 10; ++i) {
      if (works(act)) return true;
    }
    return false;
  };
  EXPECT_TRUE(worksOnce([&](auto& from, auto& to) { files_->Rename(from, to); }));
  EXPECT_TRUE(worksOnce([&](auto&, auto& to) { files_->RemoveAll(std::vector<std::string>{to}); }));
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
