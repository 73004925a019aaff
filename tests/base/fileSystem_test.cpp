#include "base/fileSystem.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>
#include <vector>

#include "base/temporaryName.h"
#include "tests/support/tempFolder.h"

namespace kestrin::base {
namespace {

class NativeFiles : public testing::Test {
 protected:
  std::string Make(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }

  std::ptrdiff_t EntryCount() const {
    return std::distance(std::filesystem::directory_iterator(folder_.Path()), {});
  }

  /// The error must name the path and give a reason.
  static void ExpectError(const std::string& path, const std::function<void()>& action) {
    try {
      action();
      FAIL() << "no error about " << path;
    } catch (const FileError& error) {
      EXPECT_EQ(error.Path(), path);
      EXPECT_FALSE(error.Reason().empty());
    }
  }

  test::TempFolder folder_;
  std::unique_ptr<FileSystem> files_ = NativeFileSystem();
};

/// Each with files that vanish and with named ones.
class NativeUnfinished : public NativeFiles, public testing::WithParamInterface<Unfinished> {
 protected:
  NativeUnfinished() { files_ = NativeFileSystem(GetParam()); }
};

TEST_P(NativeUnfinished, WritesAtOffsetsInAnyOrder) {
  const auto file = files_->Create(folder_ / "a");
  file->WriteAt(3, "def");
  file->WriteAt(0, "abc");
  file->WriteAt(1, "B");
  file->WriteAt(6, "");
  file->Sync();
  file->Close();
  file->Publish();
  EXPECT_EQ(test::FileBytes(folder_ / "a"), "aBcdef");
  EXPECT_EQ(EntryCount(), 1);
}

TEST_P(NativeUnfinished, FileHasItsNameOnlyOncePublished) {
  const std::string path = Make("a", "old");
  const auto file = files_->Create(path);
  file->WriteAt(0, "new");
  file->Close();
  EXPECT_EQ(test::FileBytes(path), "old");
  file->Publish();
  EXPECT_EQ(test::FileBytes(path), "new");
  EXPECT_EQ(EntryCount(), 1);
}

TEST_P(NativeUnfinished, FileThatIsNotPublishedGoes) {
  files_->Create(folder_ / "a")->WriteAt(0, "new");
  EXPECT_EQ(EntryCount(), 0);
}

TEST_P(NativeUnfinished, FileTakesNoFoldersName) {
  files_->MakeFolder(folder_ / "a");
  ExpectError(folder_ / "a", [&] { files_->Create(folder_ / "a")->Publish(); });
  EXPECT_EQ(EntryCount(), 1);
}

TEST_P(NativeUnfinished, CopyMakesAnEqualFileAndNeverReplaces) {
  files_->Copy(Make("from", "new"), folder_ / "to");
  EXPECT_EQ(test::FileBytes(folder_ / "to"), "new");
  ExpectError(folder_ / "to", [&] { files_->Copy(Make("other", "other"), folder_ / "to"); });
  EXPECT_EQ(test::FileBytes(folder_ / "to"), "new");
  EXPECT_EQ(EntryCount(), 3);
}

INSTANTIATE_TEST_SUITE_P(Files, NativeUnfinished,
                         testing::Values(Unfinished::kVanish, Unfinished::kNamed),
                         [](const auto& param) {
                           return param.param == Unfinished::kNamed ? "Named" : "Vanishing";
                         });

TEST_F(NativeFiles, OnlyAbandonedTemporaryFilesAreRemoved) {
  const auto named = NativeFileSystem(Unfinished::kNamed);
  const auto used = named->Create(folder_ / "used");
  used->WriteAt(0, "used");
  const std::string abandoned = Make("kestrin-0123456789abcdef.tmp", "");
  for (const char* name : {"kestrin-0123456789abcde.tmp", "kestrin-0123456789abcdeg.tmp",
                           "kestrin-0123456789abcdef.tmp.shp", "a-kestrin-0123456789abcdef.tmp"}) {
    Make(name, "");
  }
  named->Create(folder_ / "next");
  EXPECT_FALSE(files_->Exists(abandoned));
  used->Publish();
  EXPECT_EQ(test::FileBytes(folder_ / "used"), "used");
  EXPECT_EQ(EntryCount(), 5);
}

TEST_F(NativeFiles, FolderIsLockedForOneAtATime) {
  std::atomic<int> inside = 0;
  std::vector<std::jthread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int j = 0; j < 50; ++j) {
        const auto lock = files_->LockFolderOf(folder_ / "a");
        EXPECT_TRUE(lock);
        EXPECT_EQ(++inside, 1);
        std::this_thread::yield();
        --inside;
      }
    });
  }
}

TEST_F(NativeFiles, CreateInAMissingFolderFails) {
  ExpectError(folder_ / "none/a", [&] { files_->Create(folder_ / "none/a"); });
}

TEST_F(NativeFiles, RemovingWhatIsNotThereIsNoFailure) {
  files_->Remove(folder_ / "none");
  files_->Remove(folder_ / "none/none");
  const std::string path = Make("a", "");
  files_->Remove(path);
  EXPECT_FALSE(files_->Exists(path));
}

TEST_F(NativeFiles, RemovingAFolderFails) {
  files_->MakeFolder(folder_ / "sub");
  ExpectError(folder_ / "sub", [&] { files_->Remove(folder_ / "sub"); });
}

TEST_F(NativeFiles, ExistsForFilesAndFolders) {
  EXPECT_FALSE(files_->Exists(folder_ / "a"));
  EXPECT_TRUE(files_->Exists(Make("a", "")));
  EXPECT_FALSE(files_->Exists(folder_ / "a/b"));
  EXPECT_TRUE(files_->Exists(folder_.Path().string()));
  EXPECT_FALSE(files_->Exists(folder_ / std::string(5000, 'x')));
}

TEST_F(NativeFiles, ExistsForALinkToNowhere) {
  std::error_code failed;
  std::filesystem::create_symlink("none", folder_.Path() / "link", failed);
  if (failed) GTEST_SKIP() << "no links here";
  EXPECT_TRUE(files_->Exists(folder_ / "link"));
}

TEST_F(NativeFiles, MakeFolderMakesOneLevelAndAcceptsAnExistingFolder) {
  files_->MakeFolder(folder_ / "sub");
  files_->MakeFolder(folder_ / "sub");
  EXPECT_TRUE(std::filesystem::is_directory(folder_ / "sub"));
  ExpectError(folder_ / "x/y", [&] { files_->MakeFolder(folder_ / "x/y"); });
  const std::string file = Make("file", "");
  ExpectError(file, [&] { files_->MakeFolder(file); });
}

TEST_F(NativeFiles, CopyMakesAnEqualFileAndNothingElse) {
  std::string bytes(1'000'001, 'x');
  bytes[600'000] = '\0';
  const std::string from = Make("from", bytes);
  files_->Copy(from, folder_ / "to");
  EXPECT_EQ(test::FileBytes(folder_ / "to"), bytes);
  EXPECT_EQ(test::FileBytes(from), bytes);
  EXPECT_EQ(EntryCount(), 2);
}

TEST_F(NativeFiles, CopyNeverReplaces) {
  const std::string from = Make("from", "new");
  const std::string to = Make("to", "old");
  ExpectError(to, [&] { files_->Copy(from, to); });
  EXPECT_EQ(test::FileBytes(to), "old");
  EXPECT_EQ(EntryCount(), 2);
}

TEST_F(NativeFiles, FailedCopyLeavesNothing) {
  const std::string none = folder_ / "none";
  ExpectError(none, [&] { files_->Copy(none, folder_ / "to"); });
  EXPECT_EQ(EntryCount(), 0);
  files_->MakeFolder(folder_ / "sub");
  ExpectError(folder_ / "sub", [&] { files_->Copy(folder_ / "sub", folder_ / "to"); });
  EXPECT_EQ(EntryCount(), 1);
}

TEST_F(NativeFiles, FolderOfABareNameIsTheCurrentFolder) {
  files_->SyncFolderOf("name");
  files_->SyncFolderOf(folder_ / "name");
#ifndef _WIN32
  // Windows brings a name to the medium when it is given, and has no such call.
  ExpectError(folder_ / "none/", [&] { files_->SyncFolderOf(folder_ / "none/name"); });
#endif
}

TEST(TemporaryName, LiesBesideItsTargetAndIsNeverTheSame) {
  const std::string name = TemporaryNameBeside("/some/folder/job_WIRE.shp");
  EXPECT_EQ(name.rfind("/some/folder/kestrin-", 0), 0U);
  EXPECT_EQ(name.substr(name.size() - 4), ".tmp");
  EXPECT_NE(name, TemporaryNameBeside("/some/folder/job_WIRE.shp"));
  EXPECT_EQ(TemporaryNameBeside("job_WIRE.shp").rfind("kestrin-", 0), 0U);
}

TEST(TemporaryName, IsNoLongerForALongTarget) {
  EXPECT_EQ(TemporaryNameBeside(std::string(255, 'x')).size(), TemporaryNameBeside("x").size());
}

}  // namespace
}  // namespace kestrin::base
