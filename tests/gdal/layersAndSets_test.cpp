#include <gmock/gmock.h>

#include <algorithm>

#include "tests/gdal/gdalFixture.h"
#include "tests/support/database.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/manyJobs.h"

namespace kestrin::gdal {
namespace {

using testing::IsEmpty;
using testing::Not;

/// Every layer of a job beside the set of its kind.
class LayersAndSets : public test::GdalFixture {
 protected:
  void ExpectLayersLikeSets(const std::string& job);

 private:
  void ExpectLayerLikeSet(OGRLayer& layer, OGRLayer& set);
};

void ExpectSameFields(const OGRFeatureDefn& ours, const OGRFeatureDefn& sets) {
  ASSERT_EQ(ours.GetFieldCount(), sets.GetFieldCount());
  for (int i = 0; i < ours.GetFieldCount(); ++i) {
    EXPECT_TRUE(ours.GetFieldDefn(i)->IsSame(sets.GetFieldDefn(i))) << i;
  }
}

void ExpectOfItsType(OGRLayer& layer) {
  layer.ResetReading();
  while (const OGRFeatureUniquePtr feature{layer.GetNextFeature()}) {
    const OGRGeometry* shape = feature->GetGeometryRef();
    if (shape == nullptr) continue;
    ASSERT_EQ(shape->getGeometryType(), layer.GetGeomType()) << feature->GetFID();
    ASSERT_EQ(shape->getSpatialReference(), layer.GetSpatialRef());
  }
}

void LayersAndSets::ExpectLayerLikeSet(OGRLayer& layer, OGRLayer& set) {
  const bool many = layer.GetName() == std::string("boom");
  EXPECT_EQ(layer.GetGeomType(), many ? wkbMultiLineString : set.GetGeomType());
  ExpectSameFields(*layer.GetLayerDefn(), *set.GetLayerDefn());
  EXPECT_EQ(test::FeaturesOf(layer),
            test::FeaturesOf(set, many ? layer.GetGeomType() : wkbUnknown));
  EXPECT_EQ(layer.GetFeatureCount(), set.GetFeatureCount());
  OGREnvelope ours, sets;
  EXPECT_EQ(layer.GetExtent(&ours), set.GetExtent(&sets));
  EXPECT_EQ(ours, sets);
  ExpectOfItsType(layer);
}

void LayersAndSets::ExpectLayersLikeSets(const std::string& job) {
  const GDALDatasetUniquePtr opened = OpenJob(job);
  ASSERT_TRUE(opened);
  for (const exports::ExportKind* kind : exports::AllKinds()) {
    SCOPED_TRACE(job + ", " + std::string(kind->name));
    OGRLayer* layer = opened->GetLayerByName(std::string(kind->name).c_str());
    ASSERT_TRUE(layer);
    if (const GDALDatasetUniquePtr set = OpenSet(*kind, job)) {
      ExpectLayerLikeSet(*layer, *set->GetLayer(0));
    } else {
      const test::ToldErrors errors;
      EXPECT_EQ(layer->GetFeatureCount(), 0);
      EXPECT_THAT(errors.Texts(), Not(IsEmpty()));
    }
  }
}

class LayersOfSamples : public LayersAndSets,
                        public testing::WithParamInterface<sample::SampleProfile> {};

TEST_P(LayersOfSamples, EqualTheSetsFeatureByFeature) {
  ExpectLayersLikeSets(Sample("job.sqlite", GetParam().name, 1200));
}

INSTANTIATE_TEST_SUITE_P(Profiles, LayersOfSamples, testing::ValuesIn(sample::SampleProfiles()),
                         test::NameOfProfile);

TEST_F(LayersAndSets, OfRecordedJobsAreEqual) {
  const std::vector<std::string> jobs = test::RecordedJobs();
  if (jobs.empty()) GTEST_SKIP() << "KESTRIN_JOBS names no folder of recorded jobs";
  for (const std::string& job : jobs) ExpectLayersLikeSets(job);
}

TEST_F(LayersAndSets, GiveTheStretchOfOneRowAsALineThatEveryHostTakes) {
  const std::string job = test::JobBuilder(folder_ / "job.sqlite")
                              .Reference({1345, 0}, 45, -93)
                              .Epoch({1345, 1}, 0, 0, 0, true)
                              .Epoch({1345, 2}, 5, 0, 0, true)
                              .Epoch({1345, 3}, 6, 0)
                              .Finish();
  const auto opened = OpenJob(job);
  const OGRFeatureUniquePtr feature(opened->GetLayerByName("wire")->GetNextFeature());
  const OGRLineString* line = feature->GetGeometryRef()->toLineString();
  ASSERT_EQ(line->getNumPoints(), 2);
  EXPECT_EQ(line->getX(0), line->getX(1));
  EXPECT_EQ(line->getY(0), line->getY(1));
  EXPECT_EQ(feature->GetFieldAsDouble("METERS"), 0);
  EXPECT_EQ(opened->GetLayerByName("wire")->GetFeatureCount(), 2);
}

TEST_F(LayersAndSets, CountAllSectionsOfTheNetWhereAsked) {
  const std::string job = Sample("job.sqlite");
  test::Database(job).Execute("UPDATE GpsDataTable SET boomStatusBitfield = 3");
  const auto gross = [&](const char* option) {
    const auto opened = OpenJob(job, {option});
    return OGRFeatureUniquePtr(opened->GetLayerByName("net")->GetNextFeature())
        ->GetFieldAsDouble("GROSS");
  };
  EXPECT_GT(gross("ALL_SECTIONS=YES"), gross("ALL_SECTIONS=NO"));
}

TEST_F(LayersAndSets, AreOfNad83WithTheLongitudeFirst) {
  const auto opened = OpenJob(Sample("job.sqlite"));
  for (auto* layer : opened->GetLayers()) {
    const OGRSpatialReference* system = layer->GetSpatialRef();
    ASSERT_TRUE(system) << layer->GetName();
    EXPECT_STREQ(system->GetAuthorityCode(nullptr), "4269");
    EXPECT_EQ(system->GetDataAxisToSRSAxisMapping(), (std::vector<int>{2, 1}));
  }
}

TEST_F(LayersAndSets, GiveNamesInUtf8WhateverTheJobHas) {
  const std::string job = Sample("job.sqlite", "planter");
  test::Database(job).Execute(
      "UPDATE ImplChangeTable SET implName = CAST(x'4772FC6E' AS TEXT);"
      "UPDATE AsAppliedProductChangeTable SET ProductName0 = 'Grün'");
  const auto opened = OpenJob(job);
  for (const char* name : {"boom", "point"}) {
    const OGRFeatureUniquePtr feature(opened->GetLayerByName(name)->GetNextFeature());
    EXPECT_STREQ(feature->GetFieldAsString("Implement"), "Grün") << name;
    const int product =
        std::max(feature->GetFieldIndex("Product"), feature->GetFieldIndex("Product1"));
    EXPECT_STREQ(feature->GetFieldAsString(product), "Grün") << name;
    EXPECT_TRUE(opened->GetLayerByName(name)->TestCapability(OLCStringsAsUTF8));
  }
}

}  // namespace
}  // namespace kestrin::gdal
