#include "shapefile/shapefileSet.h"

#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <filesystem>
#include <random>
#include <sstream>

#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

namespace kestrin::shapefile {
namespace {

const std::array<Field, 1> kShortField{{{"ID", 'N', 3, 0}}};

/// Bytes from their hexadecimal digits; blanks are for the reader.
std::string Hex(const std::string& digits) {
  std::string bytes;
  std::string pair;
  for (const char digit : digits) {
    if (digit == ' ') continue;
    pair += digit;
    if (pair.size() < 2) continue;
    bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
    pair.clear();
  }
  return bytes;
}

// Doubles as they stand in the files.
const std::string kOne = "000000000000F03F ";
const std::string kTwo = "0000000000000040 ";
const std::string kThree = "0000000000000840 ";
const std::string kMinusHalf = "000000000000E0BF ";
const std::string kZero = "0000000000000000 ";

/// The 100 bytes in front of a file: length in words, shape type and box in digits.
std::string HeaderHex(const std::string& words, const std::string& type, const std::string& box) {
  return "0000270A 00000000 00000000 00000000 00000000 00000000 " + words + " E8030000 " + type +
         " " + box + kZero + kZero + kZero + kZero;
}

class ShapefileSetTest : public testing::Test {
 protected:
  ShapefileSet MakeSet(ShapeType type) { return {*files_, base_, type, kShortField, options_}; }

  std::string Shp() const { return test::FileBytes(base_ + ".shp"); }
  std::string Shx() const { return test::FileBytes(base_ + ".shx"); }
  std::string Dbf() const { return test::FileBytes(base_ + ".dbf"); }

  std::size_t FileCount() const {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      ++count;
    }
    return count;
  }

  test::TempFolder folder_;
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
  std::string base_ = folder_ / "job_KIND";
  SetOptions options_{{2006, 7, 9}};
};

/// Year, month and day of a time by the local clock, as the C library prints them.
std::array<int, 3> LocalDay(std::time_t time) {
  char text[16];
  std::strftime(text, sizeof text, "%Y %m %d", std::localtime(&time));
  std::istringstream in(text);
  std::array<int, 3> day{};
  for (int& number : day) in >> number;
  return day;
}

const std::string kTableHead =
    "03 6A 07 09 01000000 4100 0400 0000000000000000000000000000000000000000 "
    "4944000000000000000000 4E 00000000 03 00 0000000000000000000000000000 0D ";

TEST_F(ShapefileSetTest, PolylinesByteForByte) {
  ShapefileSet set = MakeSet(ShapeType::kPolyline);
  set.BeginRecord();
  set.AddVertex({1, 2});
  set.AddVertex({3, -0.5});
  set.EndRecord("   0");
  set.BeginRecord();
  set.AddVertex({-0.5, 3});
  set.EndRecord("   1");
  set.Commit();

  const std::string box = kMinusHalf + kMinusHalf + kThree + kThree;
  EXPECT_EQ(Shp(), Hex(HeaderHex("00000082", "03000000", box) +
                       // Record 1: 40 words, its box, 1 part, 2 points.
                       "00000001 00000028 03000000 " + kOne + kMinusHalf + kThree + kTwo +
                       "01000000 02000000 00000000 " + kOne + kTwo + kThree + kMinusHalf +
                       // Record 2: 32 words, 1 point.
                       "00000002 00000020 03000000 " + kMinusHalf + kThree + kMinusHalf + kThree +
                       "01000000 01000000 00000000 " + kMinusHalf + kThree));
  EXPECT_EQ(Shx(),
            Hex(HeaderHex("0000003A", "03000000", box) + "00000032 00000028 0000005E 00000020"));
  std::string head = kTableHead;
  head.replace(head.find("01000000"), 2, "02");
  EXPECT_EQ(Dbf(), Hex(head + "20202030 20202031 1A"));
}

TEST_F(ShapefileSetTest, PolygonsByteForByte) {
  ShapefileSet set = MakeSet(ShapeType::kPolygon);
  set.BeginRecord();
  for (const geo::GeoPoint vertex : {geo::GeoPoint{1, 1}, {1, 2}, {2, 2}, {1, 1}}) {
    set.AddVertex(vertex);
  }
  set.EndRecord("   0");
  set.Commit();

  const std::string box = kOne + kOne + kTwo + kTwo;
  EXPECT_EQ(Shp(), Hex(HeaderHex("0000006E", "05000000", box) + "00000001 00000038 05000000 " +
                       box + "01000000 04000000 00000000 " + kOne + kOne + kOne + kTwo + kTwo +
                       kTwo + kOne + kOne));
  EXPECT_EQ(Shx(), Hex(HeaderHex("00000036", "05000000", box) + "00000032 00000038"));
  EXPECT_EQ(Dbf(), Hex(kTableHead + "20202030 1A"));
}

TEST_F(ShapefileSetTest, PointsByteForByte) {
  ShapefileSet set = MakeSet(ShapeType::kPoint);
  set.AddPoint({1, -0.5}, "   0");
  set.AddPoint({2, 3}, "   1");
  set.Commit();

  const std::string box = kOne + kMinusHalf + kTwo + kThree;
  EXPECT_EQ(Shp(), Hex(HeaderHex("0000004E", "01000000", box) + "00000001 0000000A 01000000 " +
                       kOne + kMinusHalf + "00000002 0000000A 01000000 " + kTwo + kThree));
  EXPECT_EQ(Shx(),
            Hex(HeaderHex("0000003A", "01000000", box) + "00000032 0000000A 00000040 0000000A"));
}

TEST_F(ShapefileSetTest, PolygonOfTwoPartsByteForByte) {
  ShapefileSet set = MakeSet(ShapeType::kPolygon);
  set.BeginRecord(2);
  for (const geo::GeoPoint point : {geo::GeoPoint{1, 2}, {1, 3}, {3, 3}, {1, 2}}) {
    set.AddVertex(point);
  }
  set.BeginPart();
  set.AddVertex({-0.5, 2});
  set.EndRecord("   0");
  set.Commit();

  const std::string bounds = kMinusHalf + kTwo + kThree + kThree;
  // 44 + 4 * 2 + 16 * 5 bytes of content: 66 words.
  EXPECT_EQ(Shp(), Hex(HeaderHex("00000078", "05000000", bounds) + "00000001 00000042 05000000 " +
                       bounds + "02000000 05000000 00000000 04000000 " + kOne + kTwo + kOne +
                       kThree + kThree + kThree + kOne + kTwo + kMinusHalf + kTwo));
  EXPECT_EQ(Shx(), Hex(HeaderHex("00000036", "05000000", bounds) + "00000032 00000042"));
}

TEST_F(ShapefileSetTest, CrossLinesByteForByte) {
  ShapefileSet set = MakeSet(ShapeType::kPolyline);
  const geo::Box box{-0.5, 2, 3, 3};
  set.BeginCrossLines(box, 2, "   0");
  set.AddCrossLine({1, 2}, {3, 2});
  set.AddCrossLine({1, 3}, {-0.5, 3});
  set.SetBox(box);
  set.Commit();

  const std::string bounds = kMinusHalf + kTwo + kThree + kThree;
  // 44 + 4 * 2 + 16 * 4 bytes of content: 58 words.
  EXPECT_EQ(Shp(), Hex(HeaderHex("00000070", "03000000", bounds) + "00000001 0000003A 03000000 " +
                       bounds + "02000000 04000000 00000000 02000000 " + kOne + kTwo + kThree +
                       kTwo + kOne + kThree + kMinusHalf + kThree));
  EXPECT_EQ(Shx(), Hex(HeaderHex("00000036", "03000000", bounds) + "00000032 0000003A"));
  EXPECT_EQ(Dbf(), Hex(kTableHead + "20202030 1A"));
}

TEST_F(ShapefileSetTest, RecordWithoutCrossLinesHasNoPartsAndAZeroBox) {
  ShapefileSet set = MakeSet(ShapeType::kPolyline);
  set.BeginCrossLines({}, 0, "   0");
  set.Commit();

  const std::string zeros = kZero + kZero + kZero + kZero;
  EXPECT_EQ(Shp(), Hex(HeaderHex("0000004C", "03000000", zeros) + "00000001 00000016 03000000 " +
                       zeros + "00000000 00000000"));
}

TEST_F(ShapefileSetTest, BoxesOfCrossLinesAreThoseGiven) {
  ShapefileSet set = MakeSet(ShapeType::kPolyline);
  set.BeginCrossLines({0, 1, 4, 5}, 1, "   0");
  set.AddCrossLine({1, 2}, {3, 2});
  set.SetBox({7, 8, 7, 8});
  set.Commit();
  const test::ReadSet read = test::ReadShapeSet(base_, test::RecordBoxes::kAny);
  EXPECT_EQ(read.records[0].box, (geo::Box{0, 1, 4, 5}));
  EXPECT_EQ(read.box, (geo::Box{7, 8, 7, 8}));
}

TEST_F(ShapefileSetTest, OneRecordGivesAnIndexOf54Words) {
  ShapefileSet set = MakeSet(ShapeType::kPoint);
  set.AddPoint({1, 2}, "   0");
  set.Commit();
  EXPECT_EQ(Shx().size(), 108U);
  EXPECT_EQ(Shx().substr(24, 4), Hex("00000036"));
}

TEST_F(ShapefileSetTest, SetWithoutRecordsIsThreeHeaders) {
  MakeSet(ShapeType::kPolyline).Commit();
  const std::string zeros = kZero + kZero + kZero + kZero;
  EXPECT_EQ(Shp(), Hex(HeaderHex("00000032", "03000000", zeros)));
  EXPECT_EQ(Shx(), Hex(HeaderHex("00000032", "03000000", zeros)));
  std::string head = kTableHead;
  head.replace(head.find("01000000"), 2, "00");
  EXPECT_EQ(Dbf(), Hex(head + "1A"));
}

TEST_F(ShapefileSetTest, TableDateIsTheDayOfWriting) {
  const auto before = std::time(nullptr);
  options_ = SetOptions{};
  MakeSet(ShapeType::kPoint).Commit();
  const auto date = test::ReadShapeSet(base_).date;
  // Midnight may have passed meanwhile.
  EXPECT_TRUE(date == LocalDay(before) || date == LocalDay(std::time(nullptr)));
}

TEST_F(ShapefileSetTest, TableDateIsTheOneGivenWhereThereIsOne) {
  MakeSet(ShapeType::kPoint).Commit();
  EXPECT_EQ(test::ReadShapeSet(base_).date, (std::array{2006, 7, 9}));
}

TEST_F(ShapefileSetTest, ProjectionAndEncodingOnlyWhenAskedFor) {
  MakeSet(ShapeType::kPoint).Commit();
  EXPECT_EQ(FileCount(), 3U);
  options_.withProjection = true;
  MakeSet(ShapeType::kPoint).Commit();
  EXPECT_EQ(FileCount(), 5U);
  EXPECT_EQ(test::FileBytes(base_ + ".cpg"), "UTF-8");
  EXPECT_EQ(test::FileBytes(base_ + ".prj"),
            "GEOGCS[\"GCS_North_American_1983\",DATUM[\"D_North_American_1983\","
            "SPHEROID[\"GRS_1980\",6378137.0,298.257222101]],PRIMEM[\"Greenwich\",0.0],"
            "UNIT[\"Degree\",0.0174532925199433]]");
}

TEST_F(ShapefileSetTest, NothingHasItsNameBeforeCommit) {
  ShapefileSet set = MakeSet(ShapeType::kPoint);
  set.AddPoint({1, 2}, "   0");
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
    EXPECT_EQ(entry.path().extension(), ".tmp");
  }
  set.Commit();
  EXPECT_EQ(FileCount(), 3U);
}

TEST_F(ShapefileSetTest, NothingIsLeftWithoutCommit) {
  {
    ShapefileSet set = MakeSet(ShapeType::kPoint);
    set.AddPoint({1, 2}, "   0");
  }
  EXPECT_EQ(FileCount(), 0U);
}

/// Records longer than every buffer, and fixed parts that lie across the places
/// where buffers end.
TEST_F(ShapefileSetTest, LargeSetsReadBackAsTheyWereWritten) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> degrees(-180, 180);
  std::vector<std::vector<geo::GeoPoint>> records;
  for (const int size : {200'000, 1, 0, 65'534, 65'529, 3, 131'072}) {
    records.emplace_back();
    for (int i = 0; i < size; ++i) {
      records.back().push_back({degrees(random), degrees(random)});
    }
  }
  for (int i = 0; i < 40'000; ++i) records.push_back({{1.0 * i, -1.0 * i}, {1.0 * i, 1.0 * i}});

  ShapefileSet set = MakeSet(ShapeType::kPolyline);
  for (const auto& record : records) {
    set.BeginRecord();
    for (const geo::GeoPoint& vertex : record) set.AddVertex(vertex);
    set.EndRecord("   9");
  }
  EXPECT_EQ(set.RecordCount(), 40'007);
  set.Commit();

  const test::ReadSet read = test::ReadShapeSet(base_);
  ASSERT_EQ(read.records.size(), records.size());
  for (std::size_t i = 0; i < records.size(); ++i) ASSERT_EQ(read.records[i].points, records[i]);
}

TEST_F(ShapefileSetTest, ManyCrossLinesReadBackAsTheyWereWritten) {
  constexpr int kLines = 75'000;
  const auto point = [](int i) { return geo::GeoPoint{i * 0.5, -i * 0.25}; };
  ShapefileSet set = MakeSet(ShapeType::kPolyline);
  set.BeginCrossLines({0, -(2 * kLines - 1) * 0.25, (2 * kLines - 1) * 0.5, 0}, kLines, "   0");
  for (int i = 0; i < kLines; ++i) set.AddCrossLine(point(2 * i), point(2 * i + 1));
  set.Commit();

  const test::ReadSet read = test::ReadShapeSet(base_);
  ASSERT_EQ(read.records[0].parts.size(), 75'000U);
  ASSERT_EQ(read.records[0].points.size(), 150'000U);
  for (int i = 0; i < 2 * kLines; ++i) {
    ASSERT_EQ(read.records[0].points[static_cast<std::size_t>(i)], point(i));
  }
}

TEST_F(ShapefileSetTest, RemoveSetRemovesTheThreeFilesAndNoOther) {
  options_.withProjection = true;
  MakeSet(ShapeType::kPoint).Commit();
  RemoveSet(*files_, base_);
  EXPECT_EQ(FileCount(), 2U);
  EXPECT_TRUE(files_->Exists(base_ + ".prj"));
  RemoveSet(*files_, base_);
}

TEST_F(ShapefileSetTest, RemoveSetOfAnEmptyBasePathRemovesNothing) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path());
  files_->Create(".shp")->Publish();
  RemoveSet(*files_, "");
  const bool kept = files_->Exists(".shp");
  std::filesystem::current_path(before);
  EXPECT_TRUE(kept);
}

TEST_F(ShapefileSetTest, RemoveSetFailsWhereAFolderIsInTheWay) {
  files_->MakeFolder(base_ + ".shx");
  try {
    RemoveSet(*files_, base_);
    FAIL();
  } catch (const base::FileError& error) {
    EXPECT_EQ(error.Path(), base_ + ".shx");
    EXPECT_FALSE(error.Reason().empty());
  }
}

TEST_F(ShapefileSetTest, SetExistsOnlyWithAllThreeFiles) {
  EXPECT_FALSE(SetExists(*files_, base_));
  MakeSet(ShapeType::kPoint).Commit();
  for (const char* extension : {".shp", ".shx", ".dbf"}) {
    EXPECT_TRUE(SetExists(*files_, base_));
    std::filesystem::rename(base_ + extension, folder_ / "away");
    EXPECT_FALSE(SetExists(*files_, base_)) << extension;
    std::filesystem::rename(folder_ / "away", base_ + extension);
  }
}

}  // namespace
}  // namespace kestrin::shapefile
