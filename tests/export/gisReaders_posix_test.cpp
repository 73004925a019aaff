#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "shapefile/numberText.h"
#include "shapefile/shapefileSet.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"
#include "tests/support/toolOutput.h"

/// What GDAL and shapelib make of the sets, where their tools are installed.

namespace kestrin::exports {
namespace {

using test::Behind;
using test::Installed;
using test::Output;

std::vector<double> Numbers(const std::string& text) {
  std::vector<double> numbers;
  const char* at = text.c_str();
  while (*(at += std::strcspn(at, "-0123456789")) != '\0') {
    char* end = nullptr;
    numbers.push_back(std::strtod(at, &end));
    // " - " between two points is no number.
    if (end == at) numbers.pop_back();
    at = end == at ? at + 1 : end;
  }
  return numbers;
}

void ExpectNear(const geo::Box& one, const geo::Box& other, double tolerance) {
  EXPECT_NEAR(one.xMin, other.xMin, tolerance);
  EXPECT_NEAR(one.yMin, other.yMin, tolerance);
  EXPECT_NEAR(one.xMax, other.xMax, tolerance);
  EXPECT_NEAR(one.yMax, other.yMax, tolerance);
}

const std::array<shapefile::Field, 3> kFields{
    {{"ID", 'N', 8, 0}, {"METERS", 'N', 10, 2}, {"NAME", 'C', 10, 0}}};
constexpr int kRecords = 25;

double Metres(int record) { return record * 1234.125; }

class GisReaders : public testing::TestWithParam<shapefile::ShapeType> {
 protected:
  GisReaders() {
    shapefile::ShapefileSet set(*files_, base_, GetParam(), kFields, {{2006, 7, 9}, true});
    shapefile::AttributeRecord row(kFields);
    for (int i = 0; i < kRecords; ++i) {
      row.Clear();
      row.Add(shapefile::IntegerText(i).View(), shapefile::Keep::kRight);
      row.Add(shapefile::RoundedText(Metres(i), 2).View(), shapefile::Keep::kLeft);
      row.Add("Boom " + std::to_string(i), shapefile::Keep::kLeft);
      AddShape(set, i, row.Bytes());
    }
    set.Commit();
    read_ = test::ReadShapeSet(base_);
  }

  static void AddShape(shapefile::ShapefileSet& set, int i, std::string_view attributes) {
    const double x = -93.5 + i * 0.001;
    const double y = 45.25 - i * 0.0017;
    if (GetParam() == shapefile::ShapeType::kPoint) return set.AddPoint({x, y}, attributes);
    set.BeginRecord();
    set.AddVertex({x, y});
    set.AddVertex({x, y + 0.01});
    for (int j = 0; j <= i; ++j) set.AddVertex({x + 0.01, y + 0.01 - j * 0.0001});
    if (GetParam() == shapefile::ShapeType::kPolygon) set.AddVertex({x, y});
    set.EndRecord(attributes);
  }

  static std::string Command(const std::string& command, const std::string& path) {
    return Output(command + " '" + path + "'");
  }

  test::TempFolder folder_;
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
  std::string base_ = folder_ / "set";
  test::ReadSet read_;
};

TEST_P(GisReaders, GdalSeesTheSameCountBoxAndAttributesWithoutComplaint) {
  if (!Installed("ogrinfo")) GTEST_SKIP() << "ogrinfo is not installed";
  const std::string output = Command("ogrinfo -al", base_ + ".shp");
  EXPECT_EQ(output.find("Warning"), std::string::npos) << output;
  EXPECT_EQ(output.find("ERROR"), std::string::npos) << output;
  EXPECT_EQ(Behind("Feature Count: ", output), std::vector<std::string>{std::to_string(kRecords)});
  const std::vector<double> extent = Numbers(Behind("Extent: ", output).at(0));
  ASSERT_EQ(extent.size(), 4U);
  ExpectNear({extent[0], extent[1], extent[2], extent[3]}, read_.box, 5.1e-7);
  EXPECT_NE(output.find("DBF_DATE_LAST_UPDATE=2006-07-09"), std::string::npos);
  EXPECT_NE(output.find("NAD83"), std::string::npos) << output;
  const auto ids = Behind("ID (Integer) = ", output);
  const auto metres = Behind("METERS (Real) = ", output);
  const auto names = Behind("NAME (String) = ", output);
  ASSERT_EQ(ids.size(), read_.rows.size());
  ASSERT_EQ(metres.size(), read_.rows.size());
  ASSERT_EQ(names.size(), read_.rows.size());
  for (std::size_t i = 0; i < read_.rows.size(); ++i) {
    EXPECT_EQ(ids[i], test::Trimmed(read_.rows[i][0]));
    EXPECT_EQ(std::stod(metres[i]), std::stod(read_.rows[i][1]));
    EXPECT_EQ(names[i], test::Trimmed(read_.rows[i][2]));
  }
}

TEST_P(GisReaders, ShapelibSeesTheSameShapes) {
  if (!Installed("shpdump")) GTEST_SKIP() << "shpdump is not installed";
  const std::string output = Command("shpdump -precision 15", base_ + ".shp");
  EXPECT_EQ(Behind("# of Shapes: ", output), std::vector<std::string>{std::to_string(kRecords)})
      << output;
  const auto counts = Behind("nVertices=", output);
  const auto lows = Behind("Bounds:", output);
  const auto highs = Behind(" to ", output);
  ASSERT_EQ(counts.size(), read_.records.size()) << output;
  ASSERT_EQ(lows.size(), read_.records.size() + 1) << output;
  ASSERT_EQ(highs.size(), read_.records.size() + 1) << output;
  for (std::size_t i = 0; i <= read_.records.size(); ++i) {
    geo::Box box = read_.box;
    if (i > 0) {
      const test::ReadRecord& record = read_.records[i - 1];
      EXPECT_EQ(std::stoul(counts[i - 1]), record.points.size());
      const auto [x, y] = record.points[0];
      box = GetParam() == shapefile::ShapeType::kPoint ? geo::Box{x, y, x, y} : record.box;
    }
    const std::vector<double> low = Numbers(lows[i]);
    const std::vector<double> high = Numbers(highs[i]);
    ExpectNear({low.at(0), low.at(1), high.at(0), high.at(1)}, box, 1e-13);
  }
}

TEST_P(GisReaders, ShapelibSeesTheSameTable) {
  if (!Installed("dbfdump")) GTEST_SKIP() << "dbfdump is not installed";
  const std::string output = Command("dbfdump -r -m", base_ + ".dbf");
  const auto ids = Behind("ID: ", output);
  const auto metres = Behind("METERS: ", output);
  const auto names = Behind("NAME: ", output);
  ASSERT_EQ(ids.size(), read_.rows.size()) << output;
  ASSERT_EQ(metres.size(), read_.rows.size()) << output;
  ASSERT_EQ(names.size(), read_.rows.size()) << output;
  for (std::size_t i = 0; i < read_.rows.size(); ++i) {
    EXPECT_EQ(ids[i], test::Trimmed(read_.rows[i][0]));
    EXPECT_EQ(metres[i], test::Trimmed(read_.rows[i][1]));
    EXPECT_EQ(names[i], test::Trimmed(read_.rows[i][2]));
  }
}

INSTANTIATE_TEST_SUITE_P(Types, GisReaders,
                         testing::Values(shapefile::ShapeType::kPoint,
                                         shapefile::ShapeType::kPolyline,
                                         shapefile::ShapeType::kPolygon),
                         [](const auto& param) {
                           return "Type" + std::to_string(static_cast<int>(param.param));
                         });

}  // namespace
}  // namespace kestrin::exports
