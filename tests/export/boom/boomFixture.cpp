#include "tests/export/boom/boomFixture.h"

#include <bit>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "geo/localOffsets.h"

namespace kestrin::test {
namespace {

/// Takes numbers off the front of a file's bytes.
class Bytes {
 public:
  explicit Bytes(std::string bytes) : bytes_(std::move(bytes)) {}
  bool AtEnd() const { return at_ >= bytes_.size(); }
  void SkipTo(std::size_t at) { at_ = at; }
  std::string Take(std::size_t size) {
    if (at_ + size > bytes_.size()) throw std::runtime_error("file too short");
    at_ += size;
    return bytes_.substr(at_ - size, size);
  }
  std::uint64_t Little(std::size_t size) {
    const std::string text = Take(size);
    std::uint64_t value = 0;
    for (auto c = text.rbegin(); c != text.rend(); ++c) {
      value = value << 8 | static_cast<unsigned char>(*c);
    }
    return value;
  }
  std::uint32_t Le() { return static_cast<std::uint32_t>(Little(4)); }
  std::uint32_t Be() { return __builtin_bswap32(Le()); }
  double Number() { return std::bit_cast<double>(Little(8)); }
  geo::Box TakeBox() {
    geo::Box box;
    for (double* bound : {&box.xMin, &box.yMin, &box.xMax, &box.yMax}) *bound = Number();
    return box;
  }

 private:
  std::string bytes_;
  std::size_t at_ = 0;
};

BoomShape TakeShape(Bytes& shp) {
  BoomShape shape;
  shape.number = shp.Be();
  shape.contentWords = shp.Be();
  EXPECT_EQ(shp.Le(), 3U);
  shape.box = shp.TakeBox();
  shape.parts.resize(shp.Le());
  shape.points.resize(shp.Le());
  for (std::uint32_t& part : shape.parts) part = shp.Le();
  for (LiteralPoint& point : shape.points) {
    point.x = shp.Number();
    point.y = shp.Number();
  }
  return shape;
}

const jobstore::ReferenceRow kReference{{}, 47, -97.5};

geo::UtmPoint FromReference(const LiteralPoint& point) {
  const geo::WorkingPlane plane(kReference);
  double northing = point.y;
  double easting = point.x;
  EXPECT_EQ(geo::GeoToUtm(northing, easting, 14), 0);
  return {std::round((easting - plane.Origin().easting) * 1000) / 1000 + 0.0,
          std::round((northing - plane.Origin().northing) * 1000) / 1000 + 0.0};
}

}  // namespace

BoomSet ReadBoomSet(const std::string& basePath) {
  Bytes shp(FileBytes(basePath + ".shp"));
  Bytes dbf(FileBytes(basePath + ".dbf"));
  BoomSet set;
  shp.SkipTo(36);
  set.box = shp.TakeBox();
  shp.SkipTo(100);
  dbf.SkipTo(385);
  while (!shp.AtEnd()) {
    BoomShape shape = TakeShape(shp);
    dbf.Take(1);
    shape.fields.push_back(dbf.Take(8));
    for (int field = 1; field < 11; ++field) shape.fields.push_back(dbf.Take(10));
    set.shapes.push_back(std::move(shape));
  }
  EXPECT_EQ(dbf.Take(1), "\x1A");
  EXPECT_TRUE(dbf.AtEnd());
  return set;
}

void BoomFixture::PutOldFiles() {
  for (const char* extension : {".shp", ".shx", ".dbf"}) std::ofstream(base + extension) << "old";
}

exports::ExportOutcome BoomFixture::Export() {
  if (jobPath.empty()) jobPath = builder.Finish();
  exports::ExportRun run{host, *files, options};
  return boom::ExportBoomShape(base, jobPath, run);
}

BoomSet BoomFixture::ExportedSet() {
  EXPECT_TRUE(Export().made);
  return ReadBoomSet(base);
}

bool BoomFixture::AnyFile() const {
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    if (entry.path().filename() != "job.sqlite") return true;
  }
  return false;
}

std::vector<double> BoomFixture::Easts(const BoomShape& shape) {
  std::vector<double> easts;
  for (const LiteralPoint& point : shape.points) easts.push_back(FromReference(point).easting);
  return easts;
}

std::vector<double> BoomFixture::Norths(const BoomShape& shape) {
  std::vector<double> norths;
  for (const LiteralPoint& point : shape.points) norths.push_back(FromReference(point).northing);
  return norths;
}

void BoomFixture::ReferenceOnly() { builder.Reference(kStart, 47, -97.5); }

void BoomFixture::ReferenceAndDisc() {
  ReferenceOnly();
  builder.Implement(kStart, "Disc", {{4, 0, 0, 0}});
}

}  // namespace kestrin::test
