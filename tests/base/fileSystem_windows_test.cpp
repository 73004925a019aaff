#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <fstream>
#include <optional>
#include <thread>

#include "base/fileSystem.h"
#include "base/nativePath.h"
#include "base/systemReason.h"
#include "export/setNames.h"
#include "shapefile/shapefileSet.h"
#include "tests/support/tempFolder.h"

/// What only Windows does: files that are in use stay, and long paths need care.

namespace kestrin::base {
namespace {

constexpr DWORD kShareReading = FILE_SHARE_READ | FILE_SHARE_WRITE;
const std::string kInUse = ReasonOf(ERROR_SHARING_VIOLATION);

/// A file that another program has open.
class InUse {
 public:
  explicit InUse(const std::string& path, DWORD sharing = kShareReading)
      : handle_(CreateFileW(NativePath(path)->c_str(), GENERIC_READ, sharing, nullptr,
                            OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(handle_, INVALID_HANDLE_VALUE) << path;
  }
  ~InUse() { CloseHandle(handle_); }
  InUse(const InUse&) = delete;
  InUse& operator=(const InUse&) = delete;

 private:
  HANDLE handle_;
};

class WindowsFiles : public testing::Test {
 protected:
  std::string Make(const std::string& name, const std::string& bytes = "old") {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }

  /// The reason of the failure about `path`.
  static std::string Reason(const std::string& path, const std::function<void()>& action) {
    try {
      action();
    } catch (const FileError& error) {
      EXPECT_EQ(error.Path(), path);
      return error.Reason();
    }
    return "no failure";
  }

  void WriteSet(const std::string& base) {
    const std::array<shapefile::Field, 1> fields{{{"ID", 'N', 8, 0}}};
    shapefile::ShapefileSet set(*files_, base, shapefile::ShapeType::kPoint, fields, {});
    set.AddPoint({1, 2}, "        0");
    set.Commit();
  }

  test::TempFolder folder_;
  std::unique_ptr<FileSystem> files_ = NativeFileSystem();
};

TEST_F(WindowsFiles, ATargetInUseIsAClearErrorAndStays) {
  const std::string from = Make("from", "new");
  const std::string to = Make("to");
  {
    const InUse gis(to);
    EXPECT_EQ(Reason(to, [&] { files_->Rename(from, to); }), kInUse);
    EXPECT_EQ(Reason(to, [&] { files_->Remove(to); }), kInUse);
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

TEST_F(WindowsFiles, ASetOfWhichOneFileIsInUseStaysWhole) {
  for (const char* extension : {".shp", ".shx", ".dbf"}) {
    for (const char* each : {"set.shp", "set.shx", "set.dbf"}) Make(each);
    {
      const InUse gis(folder_ / "set" + extension);
      EXPECT_EQ(Reason(folder_ / "set" + extension,
                       [&] { shapefile::RemoveSet(*files_, folder_ / "set"); }),
                kInUse);
      EXPECT_TRUE(shapefile::SetExists(*files_, folder_ / "set")) << extension;
    }
    shapefile::RemoveSet(*files_, folder_ / "set");
    EXPECT_FALSE(files_->Exists(folder_ / "set.shp")) << extension;
  }
}

TEST_F(WindowsFiles, ASetOfWhichOneFileIsWriteProtectedStaysWhole) {
  for (const char* each : {"set.shp", "set.shx", "set.dbf"}) Make(each);
  SetFileAttributesW(NativePath(folder_ / "set.dbf")->c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Reason(folder_ / "set.dbf", [&] { shapefile::RemoveSet(*files_, folder_ / "set"); }),
            ReasonOf(ERROR_ACCESS_DENIED));
  EXPECT_TRUE(shapefile::SetExists(*files_, folder_ / "set"));
  SetFileAttributesW(NativePath(folder_ / "set.dbf")->c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFiles, ASetThatIsReadWithLeaveToDeleteItIsReplaced) {
  for (const char* each : {"set.shp", "set.shx", "set.dbf"}) Make(each);
  {
    const InUse indexer(folder_ / "set.dbf", kShareReading | FILE_SHARE_DELETE);
    shapefile::RemoveSet(*files_, folder_ / "set");
  }
  WriteSet(folder_ / "set");
  EXPECT_TRUE(shapefile::SetExists(*files_, folder_ / "set"));
}

TEST_F(WindowsFiles, AJobInUseByItsConsoleIsCopied) {
  const std::string job = Make("job.sqlite");
  const HANDLE console = CreateFileW(NativePath(job)->c_str(), GENERIC_READ | GENERIC_WRITE,
                                     kShareReading, nullptr, OPEN_EXISTING, 0, nullptr);
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

TEST_F(WindowsFiles, FoldersAndSetsFarBeyond260CharactersAreMade) {
  std::string folder = folder_.Path().string() + "\\";
  for (int level = 0; level < 8; ++level) folder += std::string(60, 'x') + "\\";
  MakePath(*files_, folder);
  WriteSet(folder + "set");
  EXPECT_TRUE(shapefile::SetExists(*files_, folder + "set"));
  files_->Copy(folder + "set.dbf", folder + "copy");
  EXPECT_TRUE(files_->Exists(folder + "copy"));
  shapefile::RemoveSet(*files_, folder + "set");
  EXPECT_FALSE(files_->Exists(folder + "set.shp"));
}

TEST_F(WindowsFiles, LettersOfAnyScriptAreKept) {
  const std::string base = folder_ / "Süd 北 🚜";
  WriteSet(base);
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(NativePath(folder_ / "*.shp")->c_str(), &found);
  ASSERT_NE(search, INVALID_HANDLE_VALUE);
  FindClose(search);
  EXPECT_STREQ(found.cFileName, L"Süd 北 🚜.shp");
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
