#include <gmock/gmock.h>

#include <algorithm>

#include "tests/gdal/gdalFixture.h"

namespace kestrin::gdal {
namespace {

using testing::IsEmpty;
using testing::Not;

/// The layer of the points of a job, and the set's.
class PointLayer : public test::GdalFixture {
 protected:
  /// Sets the same filters on both, and expects the same features; returns how many.
  std::size_t ExpectSameThrough(const char* attributes, OGRGeometry* place) {
    for (OGRLayer* layer : {layer_, set_}) {
      layer->SetAttributeFilter(attributes);
      layer->SetSpatialFilter(place);
    }
    const std::vector<std::string> features = test::FeaturesOf(*layer_);
    EXPECT_EQ(features, test::FeaturesOf(*set_));
    EXPECT_EQ(layer_->GetFeatureCount(), static_cast<GIntBig>(features.size()));
    return features.size();
  }

  std::string job_ = Sample("job.sqlite", "sprayer", 600);
  GDALDatasetUniquePtr opened_ = OpenJob(job_);
  GDALDatasetUniquePtr madeSet_ = OpenSet(exports::kExportKinds[3], job_);
  OGRLayer* layer_ = opened_->GetLayerByName("point");
  OGRLayer* set_ = madeSet_->GetLayer(0);
};

/// The triangle of an extent that has no south-east.
OGRPolygon HalfOf(const OGREnvelope& extent) {
  OGRPolygon half;
  OGRLinearRing ring;
  ring.addPoint(extent.MinX, extent.MinY);
  ring.addPoint(extent.MinX, extent.MaxY);
  ring.addPoint(extent.MaxX, extent.MaxY);
  ring.closeRings();
  half.addRing(&ring);
  return half;
}

TEST_F(PointLayer, FiltersByAttributeAndPlace) {
  OGREnvelope extent;
  ASSERT_EQ(layer_->GetExtent(&extent), OGRERR_NONE);
  OGRPolygon half = HalfOf(extent);
  const std::size_t byPlace = ExpectSameThrough(nullptr, &half);
  const std::size_t byName = ExpectSameThrough("Type > 0 AND ID >= 200", nullptr);
  const std::size_t byBoth = ExpectSameThrough("Type > 0 AND ID >= 200", &half);
  EXPECT_GT(byBoth, 0U);
  EXPECT_LT(byBoth, std::min(byPlace, byName));
  EXPECT_LT(std::max(byPlace, byName), 600U);
  EXPECT_EQ(ExpectSameThrough(nullptr, nullptr), 600U);
}

TEST_F(PointLayer, GoesToAnyFeature) {
  for (const GIntBig at : {599, 0, 17}) {
    EXPECT_EQ(layer_->SetNextByIndex(at), OGRERR_NONE);
    const OGRFeatureUniquePtr next(layer_->GetNextFeature()), same(layer_->GetFeature(at));
    EXPECT_EQ(next->GetFID(), at);
    EXPECT_EQ(test::InWords(*next), test::InWords(*same));
  }
  const test::ToldErrors quiet;
  EXPECT_EQ(layer_->GetFeature(600), nullptr);
  EXPECT_EQ(layer_->GetFeature(-1), nullptr);
}

TEST_F(PointLayer, GoesToAFeatureAmongThoseFiltered) {
  layer_->SetAttributeFilter("ID >= 100");
  EXPECT_EQ(layer_->SetNextByIndex(5), OGRERR_NONE);
  EXPECT_EQ(OGRFeatureUniquePtr(layer_->GetNextFeature())->GetFID(), 105);
}

TEST_F(PointLayer, IsReadAgainFromTheStart) {
  const std::vector<std::string> once = test::FeaturesOf(*layer_);
  EXPECT_THAT(test::FeaturesOf(*layer_), IsEmpty());
  layer_->ResetReading();
  EXPECT_EQ(test::FeaturesOf(*layer_), once);
}

TEST_F(PointLayer, SaysWhatItCanDo) {
  EXPECT_FALSE(layer_->TestCapability(OLCFastFeatureCount)) << "there is no set yet";
  EXPECT_FALSE(layer_->TestCapability(OLCFastGetExtent));
  layer_->GetFeatureCount();
  for (const char* can : {OLCRandomRead, OLCFastSetNextByIndex, OLCFastFeatureCount,
                          OLCFastGetExtent, OLCStringsAsUTF8}) {
    EXPECT_TRUE(layer_->TestCapability(can)) << can;
  }
  for (const char* cannot : {OLCSequentialWrite, OLCRandomWrite, OLCCreateField, OLCDeleteFeature,
                             OLCTransactions, OLCFastSpatialFilter, OLCIgnoreFields}) {
    EXPECT_FALSE(layer_->TestCapability(cannot)) << cannot;
  }
  EXPECT_FALSE(opened_->TestCapability(ODsCCreateLayer));
  EXPECT_FALSE(opened_->TestCapability(ODsCDeleteLayer));
  layer_->SetAttributeFilter("ID = 1");
  EXPECT_FALSE(layer_->TestCapability(OLCFastFeatureCount));
  EXPECT_FALSE(layer_->TestCapability(OLCFastSetNextByIndex));
}

TEST_F(PointLayer, ChangesNothing) {
  const test::ToldErrors errors;
  const OGRFeatureUniquePtr feature(layer_->GetFeature(0));
  EXPECT_NE(layer_->SetFeature(feature.get()), OGRERR_NONE);
  EXPECT_NE(layer_->CreateFeature(feature.get()), OGRERR_NONE);
  EXPECT_NE(layer_->DeleteFeature(0), OGRERR_NONE);
  EXPECT_EQ(opened_->CreateLayer("new"), nullptr);
}

TEST_F(PointLayer, LeavesItsFeaturesToWhoHasThem) {
  const OGRFeatureUniquePtr feature(layer_->GetFeature(3));
  const std::string before = test::InWords(*feature);
  opened_.reset();
  EXPECT_EQ(test::InWords(*feature), before);
}

TEST_F(PointLayer, AnswersSqlOfBothDialectsAlsoOverLayers) {
  for (const char* dialect : {"OGRSQL", "SQLITE"}) {
    SCOPED_TRACE(dialect);
    OGRLayer* result = opened_->ExecuteSQL(
        "SELECT COUNT(*) AS n, MAX(Speed) AS fastest FROM point WHERE ID >= 100", nullptr, dialect);
    ASSERT_TRUE(result);
    const OGRFeatureUniquePtr row(result->GetNextFeature());
    EXPECT_EQ(row->GetFieldAsInteger("n"), 500);
    EXPECT_GT(row->GetFieldAsDouble("fastest"), 0);
    opened_->ReleaseResultSet(result);

    OGRLayer* joined = opened_->ExecuteSQL(
        "SELECT net.ACRES FROM net LEFT JOIN wire ON net.ID = wire.ID", nullptr, dialect);
    ASSERT_TRUE(joined);
    EXPECT_THAT(test::FeaturesOf(*joined), Not(IsEmpty()));
    opened_->ReleaseResultSet(joined);
  }
}

}  // namespace
}  // namespace kestrin::gdal
