#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "shapefile/shapefileSet.h"
#include "tests/support/faultyFileSystem.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

namespace kestrin::shapefile {
namespace {

using Lasts = test::FaultyFileSystem::Lasts;

const std::array<Field, 1> kFields{{{"ID", 'N', 8, 0}}};

/// More vertices than the largest buffer holds, so that the fixed part of the
/// record is written again behind it.
constexpr int kVertices = 70'000;

class SetFaults : public testing::TestWithParam<bool> {
 protected:
  void WriteSet(const std::string& base, bool lasting = true) {
    ShapefileSet set(faulty_, base, ShapeType::kPolyline, kFields,
                     {{2006, 1, 2}, GetParam(), lasting});
    set.BeginRecord();
    for (int i = 0; i < kVertices; ++i) set.AddVertex({1.0 * i, -1.0 * i});
    set.EndRecord("        0");
    set.Commit();
  }

  std::set<std::string> Entries() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  /// Makes every operation of `action` fail in turn and calls `check` after each
  /// failure, until one passes untouched. Returns what failed.
  std::multiset<std::string> FailEveryOperation(Lasts lasts, const std::function<void()>& prepare,
                                                const std::function<void()>& action,
                                                const std::function<void()>& check) {
    std::multiset<std::string> failed;
    for (int operation = 1;; ++operation) {
      faulty_.FailAt(0);
      prepare();
      faulty_.FailAt(operation, lasts);
      try {
        action();
        EXPECT_LT(faulty_.Operations(), operation) << "a failure was passed over";
        return failed;
      } catch (const base::FileError& error) {
        SCOPED_TRACE(faulty_.FailedOperation() + " " + std::to_string(operation));
        failed.insert(faulty_.FailedOperation());
        EXPECT_EQ(error.Reason(), test::kMadeUpReason);
        EXPECT_EQ(error.Path().rfind(base_ + ".", 0), 0U) << error.Path();
        EXPECT_EQ(std::string(error.what()), error.Path() + ": " + error.Reason());
        check();
      }
      if (HasFailure()) return failed;
    }
  }

  test::TempFolder folder_;
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
  test::FaultyFileSystem faulty_{*files_};
  std::string base_ = folder_ / "job_WIRE";
};

TEST_P(SetFaults, EveryFileIsSyncedBeforeAnyHasItsName) {
  std::vector<std::string> operations;
  for (;;) {
    faulty_.FailAt(static_cast<int>(operations.size()) + 1);
    try {
      WriteSet(base_);
      break;
    } catch (const base::FileError&) {
      operations.push_back(faulty_.FailedOperation());
    }
  }
  const auto named = std::ranges::find(operations, "publish");
  EXPECT_EQ(std::count(operations.begin(), named, "sync"), GetParam() ? 5 : 3);
  EXPECT_EQ(std::count(named, operations.end(), "sync"), 0);
  EXPECT_EQ(std::count(named, operations.end(), "publish"), GetParam() ? 5 : 3);
  EXPECT_EQ(operations.back(), "sync folder");
}

TEST_P(SetFaults, NothingIsLeftWhicheverOperationFails) {
  for (const Lasts lasts : {Lasts::kOnce, Lasts::kEverSince}) {
    const auto failed = FailEveryOperation(
        lasts, [&] { RemoveSet(faulty_, base_); }, [&] { WriteSet(base_); },
        [&] { EXPECT_EQ(Entries(), std::set<std::string>{}); });
    const std::size_t files = GetParam() ? 5 : 3;
    EXPECT_EQ(failed.count("create"), files);
    EXPECT_EQ(failed.count("sync"), files);
    EXPECT_EQ(failed.count("close"), files);
    EXPECT_EQ(failed.count("publish"), files);
    EXPECT_EQ(failed.count("lock folder"), 1U);
    EXPECT_EQ(failed.count("sync folder"), 1U);
    // Every file at once, and once more the parts of ".shp" already written.
    EXPECT_GE(failed.count("write"), files + 3);
    EXPECT_EQ(test::ReadShapeSet(base_).records.size(), 1U);
    for (const std::string& name : Entries()) files_->Remove(folder_ / name);
  }
}

TEST_P(SetFaults, SetThatNeedNotLastIsWrittenWithoutASync) {
  const auto failed = FailEveryOperation(
      Lasts::kOnce, [&] { RemoveSet(faulty_, base_); }, [&] { WriteSet(base_, false); }, [] {});
  EXPECT_EQ(failed.count("sync") + failed.count("sync folder"), 0U);
  EXPECT_EQ(test::ReadShapeSet(base_).records.size(), 1U);
}

TEST_P(SetFaults, OldSetIsWholeOrGoneWhicheverOperationFails) {
  FailEveryOperation(
      Lasts::kOnce, [&] { WriteSet(base_); },
      [&] {
        RemoveSet(faulty_, base_);
        WriteSet(base_);
      },
      [&] {
        for (const std::string& name : Entries()) EXPECT_EQ(name.rfind("job_WIRE.", 0), 0U) << name;
        if (files_->Exists(base_ + ".shp")) {
          EXPECT_NO_THROW(test::ReadShapeSet(base_));
        }
      });
}

TEST_P(SetFaults, NewSetNeverMixesWithOneThatCameUpMeanwhile) {
  FailEveryOperation(
      Lasts::kOnce, [&] { WriteSet(base_); }, [&] { WriteSet(base_); },
      [&] {
        if (files_->Exists(base_ + ".shp")) {
          EXPECT_NO_THROW(test::ReadShapeSet(base_));
        }
      });
}

INSTANTIATE_TEST_SUITE_P(Sets, SetFaults, testing::Values(false, true), [](const auto& param) {
  return param.param ? "WithProjection" : "Plain";
});

/// Takes everything and keeps nothing.
class BottomlessFileSystem : public base::FileSystem {
 public:
  std::unique_ptr<base::OutputFile> Create(const std::string&) override {
    return std::make_unique<File>(published);
  }
  void Remove(const std::string&) override {}
  void SyncFolderOf(const std::string&) override {}
  bool Exists(const std::string&) override { return false; }
  void MakeFolder(const std::string&) override {}
  void Copy(const std::string&, const std::string&) override {}

  int published = 0;

 private:
  class File : public base::OutputFile {
   public:
    explicit File(int& published) : published_(published) {}

   private:
    void WriteAt(std::uint64_t, std::string_view) override {}
    void Sync() override {}
    void Close() override {}
    void Publish() override { ++published_; }

    int& published_;
  };
};

constexpr std::uint64_t kTwoGiB = std::uint64_t{1} << 31;

TEST(SetLimits, ShapesOverTwoGiBAreAnErrorAboutTheShapes) {
  constexpr std::uint64_t kLines = 1'000'000;
  BottomlessFileSystem files;
  ShapefileSet set(files, "base", ShapeType::kPolyline, kFields, {});
  try {
    for (std::uint64_t bytes = 100; bytes < kTwoGiB; bytes += 52 + 36 * kLines) {
      set.BeginCrossLines({1, 1, 1, 1}, kLines, "        0");
      for (std::uint64_t i = 0; i < kLines; ++i) set.AddCrossLine({1, 1}, {1, 1});
    }
    set.Commit();
    FAIL() << "a file over 2 GiB was accepted";
  } catch (const base::FileError& error) {
    EXPECT_EQ(error.Path(), "base.shp");
    EXPECT_EQ(error.Reason(), "The file would pass 2 GiB");
  }
  EXPECT_EQ(files.published, 0);
}

TEST(SetLimits, LargestFileIsAByteShortOfTwoGiB) {
  BottomlessFileSystem files;
  for (const std::size_t more : {0U, 1U}) {
    SetFile file(files, "base.shp", kTwoGiB / 2);
    file.Next(kTwoGiB / 2);
    file.Next(kTwoGiB / 2 - 1 + more);
    if (more == 0) {
      EXPECT_NO_THROW(file.Finish(true));
    } else {
      EXPECT_THROW(file.Finish(true), base::FileError);
    }
  }
}

/// Writes as many rows as fit into a table, and so many more.
void WriteLargestTable(base::FileSystem& files, std::uint64_t moreRows) {
  // 32 + 200 * 32 + 1 bytes of header, 50,001 a row, one at the end.
  const std::vector<Field> wide(200, Field{"F", 'C', 250, 0});
  const std::string row(RecordLength(wide), ' ');
  const std::uint64_t rows = (kTwoGiB - 1 - 6433 - 1) / row.size() + moreRows;
  ShapefileSet set(files, "base", ShapeType::kPoint, wide, {});
  for (std::uint64_t i = 0; i < rows; ++i) set.AddPoint({1, 2}, row);
  set.Commit();
}

TEST(SetLimits, TableBelowTwoGiBIsWritten) {
  BottomlessFileSystem files;
  WriteLargestTable(files, 0);
  EXPECT_EQ(files.published, 3);
}

TEST(SetLimits, TableOverTwoGiBIsAnErrorAboutTheTable) {
  BottomlessFileSystem files;
  try {
    WriteLargestTable(files, 1);
    FAIL() << "a file over 2 GiB was accepted";
  } catch (const base::FileError& error) {
    EXPECT_EQ(error.Path(), "base.dbf");
    EXPECT_EQ(error.Reason(), "The file would pass 2 GiB");
  }
  EXPECT_EQ(files.published, 0);
}

}  // namespace
}  // namespace kestrin::shapefile
