#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "tests/gdal/gdalFixture.h"
#include "tests/support/database.h"
#include "tests/support/jobBuilder.h"

namespace kestrin::gdal {
namespace {

using test::FileBytes;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
namespace fs = std::filesystem;

std::vector<std::string> NamesOf(GDALDataset& opened) {
  std::vector<std::string> names;
  for (OGRLayer* layer : opened.GetLayers()) names.emplace_back(layer->GetName());
  return names;
}

class OpenJob : public test::GdalFixture {
 protected:
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }

  /// A job whose GPS rows cannot be read.
  std::string WithoutReadableRows() const {
    const std::string job = Sample("damaged.sqlite", "sprayer", 3000);
    std::string bytes = FileBytes(job);
    const auto root = static_cast<std::size_t>(
        test::Ask(job, "SELECT rootpage FROM sqlite_master WHERE name = 'GpsDataTable'"));
    bytes.replace((root - 1) * 4096, 4096, std::string(4096, 'x'));
    Write("damaged.sqlite", bytes);
    return job;
  }

  /// Opens whatever it is and reads all of it.
  static std::string DriverOf(const std::string& path) {
    const test::ToldErrors errors;
    const GDALDatasetUniquePtr opened = Open(path);
    if (!opened) return "none";
    for (OGRLayer* layer : opened->GetLayers()) test::FeaturesOf(*layer);
    return opened->GetDriverName();
  }
};

TEST_F(OpenJob, ListsItsLayersInTheOrderOfTheKindsAndNetWhenAsked) {
  const std::string job = Sample("job.sqlite");
  EXPECT_THAT(NamesOf(*GdalFixture::OpenJob(job)), ElementsAre("wire", "boom", "poly", "point"));
  EXPECT_THAT(NamesOf(*GdalFixture::OpenJob(job, {"NET=YES"})),
              ElementsAre("wire", "boom", "poly", "point", "net"));
  const auto opened = GdalFixture::OpenJob(job);
  EXPECT_STREQ(opened->GetLayerByName("NET")->GetName(), "net");
  EXPECT_EQ(opened->GetLayerByName("WIRE"), opened->GetLayer(0));
  EXPECT_EQ(opened->GetLayerByName("GpsDataTable"), nullptr);
  EXPECT_EQ(opened->GetLayer(4), nullptr);
  EXPECT_EQ(opened->GetLayer(-1), nullptr);
}

TEST_F(OpenJob, ReadsNoRowBeforeALayerIsRead) {
  const auto opened = GdalFixture::OpenJob(WithoutReadableRows());
  const test::ToldErrors errors;
  for (OGRLayer* layer : opened->GetLayers()) {
    EXPECT_NE(layer->GetGeomType(), wkbUnknown);
    EXPECT_TRUE(layer->GetSpatialRef());
    EXPECT_EQ(layer->GetLayerDefn()->GetGeomFieldCount(), 1);
    EXPECT_EQ(layer->GetFeatureCount(FALSE), -1);
    OGREnvelope extent;
    EXPECT_EQ(layer->GetExtent(&extent, FALSE), OGRERR_FAILURE);
    layer->ResetReading();
  }
  EXPECT_EQ(opened->GetLayerByName("wire")->GetLayerDefn()->GetFieldCount(), 2);
  EXPECT_EQ(opened->GetLayerByName("boom")->GetLayerDefn()->GetFieldCount(), 11);
  EXPECT_THAT(errors.Texts(), IsEmpty());
}

TEST_F(OpenJob, SaysInOurWordsThatRowsCannotBeRead) {
  const auto opened = GdalFixture::OpenJob(WithoutReadableRows());
  const test::ToldErrors errors;
  EXPECT_EQ(opened->GetLayerByName("wire")->GetFeatureCount(), 0);
  EXPECT_THAT(errors.Texts(), ElementsAre("failure: The job could not be read to its end: no set "
                                          "made, code 11"));
  EXPECT_EQ(opened->GetLayerByName("wire")->GetNextFeature(), nullptr);
  EXPECT_THAT(errors.Texts(), testing::SizeIs(1)) << "said once";
}

TEST_F(OpenJob, GivesTheRowsBeforeAReadErrorWithAWarning) {
  const std::string job = Sample("job.sqlite", "sprayer", 3000);
  test::Database(job).Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  test::DamageIndexPage(job);
  const auto opened = GdalFixture::OpenJob(job);
  const test::ToldErrors errors;
  const GIntBig points = opened->GetLayerByName("point")->GetFeatureCount();
  EXPECT_GT(points, 100);
  EXPECT_LT(points, 3000);
  EXPECT_THAT(errors.Texts(),
              ElementsAre("warning: The job could not be read to its end: the set holds " +
                          std::to_string(points) + " of 3000 epochs, code 11"));
}

TEST_F(OpenJob, GivesEmptyLayersWithTheirFieldsWhereThereIsNothing) {
  const std::string job =
      test::JobBuilder(folder_ / "job.sqlite").Reference({1345, 0}, 45, -93).Finish();
  const auto opened = GdalFixture::OpenJob(job);
  const int fields[] = {2, 11, 2, 23, 4};
  for (int i = 0; i < 5; ++i) {
    const char* names[] = {"wire", "boom", "poly", "point", "net"};
    OGRLayer* layer = opened->GetLayerByName(names[i]);
    const test::ToldErrors errors;
    EXPECT_EQ(layer->GetFeatureCount(), 0);
    EXPECT_EQ(layer->GetNextFeature(), nullptr);
    EXPECT_EQ(layer->GetFeature(0), nullptr);
    OGREnvelope extent;
    EXPECT_EQ(layer->GetExtent(&extent), OGRERR_FAILURE);
    EXPECT_EQ(layer->GetLayerDefn()->GetFieldCount(), fields[i]) << names[i];
    // A boom set may hold no record.
    if (i == 1) continue;
    EXPECT_THAT(errors.Texts(),
                ElementsAre(testing::StartsWith("warning: No set made: nothing to export")));
  }
}

TEST_F(OpenJob, SaysWhatEndsAnExport) {
  const std::string job = test::JobBuilder(folder_ / "job.sqlite").Epoch({1345, 0}, 0, 0).Finish();
  const auto opened = GdalFixture::OpenJob(job);
  const test::ToldErrors errors;
  EXPECT_EQ(opened->GetLayerByName("boom")->GetFeatureCount(), 0);
  EXPECT_THAT(errors.Texts(),
              ElementsAre("failure: No boom set made: the job has no reference location"));
}

TEST_F(OpenJob, SaysThatAJobHasGoneSinceItWasOpened) {
  const std::string job = Sample("job.sqlite");
  const auto opened = GdalFixture::OpenJob(job);
  fs::remove(job);
  const test::ToldErrors errors;
  EXPECT_EQ(opened->GetLayerByName("wire")->GetFeatureCount(), 0);
  EXPECT_EQ(opened->GetLayerByName("point")->GetFeatureCount(), 0);
  EXPECT_THAT(errors.Texts(),
              ElementsAre("failure: Error opening: -14", "failure: Error opening: -14"));
}

TEST_F(OpenJob, SaysThatAJobHasGotOtherFieldsSinceItWasOpened) {
  const std::string job = Sample("job.sqlite", "planter");
  const auto opened = GdalFixture::OpenJob(job);
  OGRLayer* points = opened->GetLayerByName("point");
  const int fields = points->GetLayerDefn()->GetFieldCount();
  test::Database(job).Execute(
      "INSERT INTO AsAppliedActRateChangeTable VALUES (1, 1, 1, 1, 1);"
      "INSERT INTO AsAppliedDesRateChangeTable VALUES (1, 1, 1, 1, 1)");
  const test::ToldErrors errors;
  EXPECT_EQ(points->GetNextFeature(), nullptr);
  EXPECT_EQ(points->GetLayerDefn()->GetFieldCount(), fields);
  EXPECT_THAT(errors.Texts(),
              ElementsAre("failure: The job has changed since it was opened: " + job));
}

TEST_F(OpenJob, IsRefusedForUpdateAndLeftToNoOtherDriver) {
  const std::string job = Sample("job.sqlite");
  const std::string before = FileBytes(job);
  const test::ToldErrors errors;
  EXPECT_EQ(GDALDataset::Open(job.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE), nullptr);
  EXPECT_THAT(errors.Texts(), ElementsAre("failure: A job is read only: " + job));
  EXPECT_EQ(FileBytes(job), before);
}

TEST_F(OpenJob, KeepsEveryByteOfAJobAndItsFolder) {
  const std::string job = Sample("job.sqlite");
  test::Database(job).Execute("PRAGMA journal_mode = WAL");
  const std::string before = FileBytes(job);
  {
    const auto opened = GdalFixture::OpenJob(job, {"NET=YES"});
    for (OGRLayer* layer : opened->GetLayers()) EXPECT_GT(layer->GetFeatureCount(), 0);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator()), 1);
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator()), 1);
  EXPECT_EQ(FileBytes(job), before);
}

TEST_F(OpenJob, LeavesNothingInTheTemporaryFolderEvenWhileItIsRead) {
  const auto opened = GdalFixture::OpenJob(Sample("job.sqlite"), {"NET=YES"});
  for (OGRLayer* layer : opened->GetLayers()) {
    const OGRFeatureUniquePtr first(layer->GetNextFeature());
    EXPECT_TRUE(first);
    EXPECT_THAT(LeftBehind(), IsEmpty()) << layer->GetName();
  }
}

TEST_F(OpenJob, SaysThatThereIsNoTemporaryFolder) {
  const auto opened = GdalFixture::OpenJob(Sample("job.sqlite"));
  const test::Setting none("TMPDIR", folder_ / "none");
  const test::ToldErrors errors;
  EXPECT_EQ(opened->GetLayer(0)->GetNextFeature(), nullptr);
  EXPECT_THAT(errors.Texts(),
              ElementsAre(MatchesRegex("failure: Error writing: the temporary folder: .+")));
}

/// A GIS opens a file anew for nearly everything it does.
class OpenTwice : public OpenJob {
 protected:
  GIntBig PointsOf(GDALDataset& opened) const {
    return opened.GetLayerByName("point")->GetFeatureCount();
  }

  std::string job_ = Sample("job.sqlite");
  GDALDatasetUniquePtr one_ = GdalFixture::OpenJob(job_);
  GDALDatasetUniquePtr other_ = GdalFixture::OpenJob(job_);
};

TEST_F(OpenTwice, MakesEachSetOnce) {
  EXPECT_EQ(PointsOf(*one_), 400);
  const test::Setting none("TMPDIR", folder_ / "none");
  EXPECT_EQ(PointsOf(*other_), 400);
  one_.reset();
  EXPECT_THAT(test::FeaturesOf(*other_->GetLayerByName("point")), testing::SizeIs(400));
}

TEST_F(OpenTwice, ReadsOneSetAtTwoPlaces) {
  OGRLayer* one = one_->GetLayerByName("point");
  OGRLayer* other = other_->GetLayerByName("point");
  for (const GIntBig at : {0, 1, 2}) {
    EXPECT_EQ(OGRFeatureUniquePtr(one->GetNextFeature())->GetFID(), at);
    if (at == 1) other->SetNextByIndex(300);
    EXPECT_EQ(OGRFeatureUniquePtr(other->GetNextFeature())->GetFID(), at == 0 ? 0 : at + 299);
  }
}

TEST_F(OpenTwice, MakesTheSetOfAJobThatHasChangedAnew) {
  EXPECT_EQ(PointsOf(*one_), 400);
  test::Database(job_).Execute("UPDATE GpsDataTable SET type = 0 WHERE rowid % 2");
  EXPECT_LT(PointsOf(*other_), 300);
  EXPECT_THAT(test::FeaturesOf(*one_->GetLayerByName("point")), testing::SizeIs(400));
}

TEST_F(OpenTwice, SaysAgainWhatIsMissing) {
  test::Database(job_).Execute("CREATE INDEX byTime ON GpsDataTable (gpsWeek, gpsMsec)");
  test::DamageIndexPage(job_);
  const test::ToldErrors errors;
  EXPECT_EQ(PointsOf(*one_), PointsOf(*other_));
  EXPECT_THAT(errors.Texts(), testing::SizeIs(2));
}

TEST_F(OpenTwice, GivesTheSpaceBackWithTheLast) {
  EXPECT_EQ(PointsOf(*one_), PointsOf(*other_));
  one_.reset();
  other_.reset();
  const auto again = GdalFixture::OpenJob(job_);
  const test::Setting none("TMPDIR", folder_ / "none");
  const test::ToldErrors errors;
  EXPECT_EQ(PointsOf(*again), 0);
}

TEST_F(OpenJob, TakesAnyNameAFileCanHave) {
  const std::string job = Sample("job.sqlite");
  for (const char* name :
       {"Süd Acker 北.sqlite", "100% #1?.db", "a&mode=rwc", "l\xe4nge \x93x\x94"}) {
    const std::string path = (folder_.Path() / name).string();
    fs::copy_file(job, path);
    EXPECT_EQ(GdalFixture::OpenJob(path)->GetLayer(3)->GetFeatureCount(), 400) << name;
  }
}

TEST_F(OpenJob, FindsItAgainWhenTheHostChangesItsFolder) {
  Sample("job.sqlite");
  const fs::path before = fs::current_path();
  fs::current_path(folder_.Path());
  const auto opened = GdalFixture::OpenJob("job.sqlite");
  fs::current_path(before);
  EXPECT_EQ(opened->GetLayer(3)->GetFeatureCount(), 400);
}

TEST_F(OpenJob, ReadsSeveralJobsAndLayersInThreadsAtOnce) {
  const std::string job = Sample("job.sqlite", "sprayer", 800);
  const auto read = [](GDALDataset& opened, const exports::ExportKind& kind) {
    OGRLayer* layer = opened.GetLayerByName(std::string(kind.name).c_str());
    return test::FeaturesOf(*layer);
  };
  std::vector<std::vector<std::string>> alone;
  for (const exports::ExportKind* kind : exports::AllKinds()) {
    alone.push_back(read(*GdalFixture::OpenJob(job), *kind));
  }
  const auto shared = GdalFixture::OpenJob(job);
  const auto kinds = exports::AllKinds();
  std::vector<std::vector<std::string>> one(kinds.size()), own(kinds.size());
  {
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
      threads.emplace_back([&, i] { one[i] = read(*shared, *kinds[i]); });
      threads.emplace_back([&, i] { own[i] = read(*GdalFixture::OpenJob(job), *kinds[i]); });
    }
  }
  EXPECT_EQ(one, alone);
  EXPECT_EQ(own, alone);
}

TEST_F(OpenJob, LeavesOtherDatabasesToTheirDrivers) {
  test::Database(folder_ / "other.sqlite").Execute("CREATE TABLE GpsDataTable (gpsWeek)");
  EXPECT_EQ(DriverOf(folder_ / "other.sqlite"), "SQLite");
  test::Database(folder_ / "empty.sqlite").Execute("PRAGMA user_version = 1");
  EXPECT_EQ(DriverOf(folder_ / "empty.sqlite"), "SQLite");
}

TEST_F(OpenJob, LeavesAGeoPackageOfItsTablesToItsDriver) {
  const std::string job = Sample("job.sqlite");
  const std::string package = folder_ / "tables.gpkg";
  const char* const tables[] = {"SQLite", nullptr};
  {
    const GDALDatasetUniquePtr plain(GDALDataset::Open(job.c_str(), GDAL_OF_VECTOR, tables));
    ASSERT_TRUE(plain) << "the tables stay within reach";
    ASSERT_TRUE(test::Translated(*plain, package, {"-f", "GPKG"}));
  }
  EXPECT_EQ(test::Ask(package, "SELECT count(*) FROM GpsDataTable"),
            test::Ask(job, "SELECT count(*) FROM GpsDataTable"));
  EXPECT_EQ(DriverOf(package), "GPKG");
}

TEST_F(OpenJob, OfAFileThatIsNoneNeverEndsTheHost) {
  Write("none.sqlite", "");
  EXPECT_EQ(DriverOf(folder_ / "none.sqlite"), "none");
  Write("text.sqlite", std::string(5000, 'x'));
  EXPECT_EQ(DriverOf(folder_ / "text.sqlite"), "none");
  EXPECT_EQ(DriverOf(base::Utf8Of(folder_.Path())), "none");
  EXPECT_EQ(DriverOf(folder_ / "gone.sqlite"), "none");
}

TEST_F(OpenJob, CutShortOrDamagedNeverEndsTheHost) {
  const std::string whole = FileBytes(Sample("whole.sqlite"));
  for (std::size_t size = 1; size < whole.size(); size += 1 + size / 2) {
    Write("job.sqlite", whole.substr(0, size));
    DriverOf(folder_ / "job.sqlite");
  }
  for (std::size_t page = 0; page < whole.size(); page += 4096) {
    std::string bytes = whole;
    for (std::size_t at = page + (page == 0 ? 100 : 0); at < page + 4096; at += 3)
      bytes[at] = '\x7f';
    Write("job.sqlite", bytes);
    DriverOf(folder_ / "job.sqlite");
  }
  EXPECT_THAT(LeftBehind(), IsEmpty());
}

}  // namespace
}  // namespace kestrin::gdal
