#include <gtest/gtest.h>

#include <cmath>

#include "export/coverage/coverageExport.h"
#include "tests/export/coverage/sharpTurns.h"
#include "tests/export/setFixture.h"
#include "tests/support/toolOutput.h"

/// What GDAL and shapelib make of a coverage set, where their tools are installed.

namespace kestrin::coverage {
namespace {

using test::Behind;

constexpr double kRightAngle = 1.5707963267948966;

class PolyReaders : public test::SetFixture {
 protected:
  /// Three polygons: a marked beginning, sharp turns, and a way across its own track.
  PolyReaders() : SetFixture(ExportPolyShape, "job_POLY") {
    options_.withProjection = true;
    builder_.Reference({1, 0}, test::kLatitude, test::kLongitude);
    builder_.Implement({1, 0}, "a", {{12, 0, 0, 0}});
    Drive(test::Driver({0, 0}, 0, 12, 1).Straight(60).Turn(kRightAngle, 2).Straight(40));
    Drive(test::Driver({200, 0}, 0, 12, 1)
              .Straight(60)
              .Turn(kRightAngle, 20)
              .Turn(kRightAngle, 20)
              .Turn(kRightAngle, 20)
              .Straight(60));
    read_ = Exported();
    EXPECT_EQ(read_.records.size(), 3U);
  }

  void Drive(const test::Driver& driver) {
    bool begins = true;
    for (const SwathRow& row : driver.Rows()) {
      const double yaw =
          std::atan2(row.left.northing - row.right.northing, row.right.easting - row.left.easting);
      builder_.Epoch({1, time_ += 200}, row.centre.easting, row.centre.northing, yaw, begins);
      begins = false;
    }
  }

  std::int32_t time_ = 0;
  test::ReadSet read_;
};

TEST_F(PolyReaders, GdalReadsEveryRecordWithItsFields) {
  if (!test::Installed("ogrinfo")) GTEST_SKIP() << "ogrinfo is not installed";
  const std::string output = test::Output("ogrinfo -al '" + base_ + ".shp'");
  EXPECT_EQ(output.find("Warning"), std::string::npos) << output;
  EXPECT_EQ(output.find("ERROR"), std::string::npos) << output;
  EXPECT_EQ(Behind("Geometry: ", output), std::vector<std::string>{"Polygon"});
  EXPECT_EQ(Behind("ID (Integer) = ", output), (std::vector<std::string>{"0", "1", "2"}));
  const auto acres = Behind("ACRES (Real) = ", output);
  ASSERT_EQ(acres.size(), read_.rows.size());
  for (std::size_t i = 0; i < acres.size(); ++i) {
    EXPECT_EQ(std::stod(acres[i]), std::stod(read_.rows[i][1]));
  }
}

TEST_F(PolyReaders, GdalFindsTheStatedAcresInThePlane) {
  if (!test::Installed("ogr2ogr")) GTEST_SKIP() << "ogr2ogr is not installed";
  const std::string output = test::Output(
      "ogr2ogr -t_srs '+proj=utm +zone=15 +ellps=GRS80' '" + (folder_ / "plane.shp") + "' '" +
      base_ + ".shp' && ogrinfo -q -sql 'SELECT OGR_GEOM_AREA AS a FROM plane' '" +
      (folder_ / "plane.shp") + "'");
  const auto areas = Behind("a (Real) = ", output);
  ASSERT_EQ(areas.size(), read_.rows.size()) << output;
  for (std::size_t i = 0; i < areas.size(); ++i) {
    EXPECT_NEAR(std::stod(areas[i]) * 0.000247105381, std::stod(read_.rows[i][1]), 0.006);
  }
}

TEST_F(PolyReaders, ShapelibFindsNoRingToRewind) {
  if (!test::Installed("shpdump")) GTEST_SKIP() << "shpdump is not installed";
  const std::string output = test::Output("shpdump -validate '" + base_ + ".shp'");
  EXPECT_EQ(Behind("# of Shapes: ", output), std::vector<std::string>{"3"}) << output;
  EXPECT_NE(output.find("\n0 object has invalid"), std::string::npos) << output;
  const auto counts = Behind("nVertices=", output);
  ASSERT_EQ(counts.size(), read_.records.size()) << output;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    EXPECT_EQ(std::stoul(counts[i]), read_.records[i].points.size());
  }
}

TEST_F(PolyReaders, ShapelibReadsTheSameTable) {
  if (!test::Installed("dbfdump")) GTEST_SKIP() << "dbfdump is not installed";
  const std::string output = test::Output("dbfdump -r -m '" + base_ + ".dbf'");
  const auto ids = Behind("ID: ", output);
  const auto acres = Behind("ACRES: ", output);
  ASSERT_EQ(ids.size(), read_.rows.size()) << output;
  ASSERT_EQ(acres.size(), read_.rows.size()) << output;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    EXPECT_EQ(ids[i], test::Trimmed(read_.rows[i][0]));
    EXPECT_EQ(acres[i], test::Trimmed(read_.rows[i][1]));
  }
}

}  // namespace
}  // namespace kestrin::coverage
