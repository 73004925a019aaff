#include "tests/export/boom/boomFixture.h"

#include <cmath>

#include "geo/utmProjection.h"
#include "geo/workingPlane.h"

namespace kestrin::test {
namespace {

const jobstore::ReferenceRow kReference{{}, 47, -97.5};

geo::UtmPoint FromReference(geo::GeoPoint point) {
  const geo::WorkingPlane plane(kReference);
  const geo::UtmPoint at = geo::UtmProjection(14).ToUtm(point);
  return {std::round((at.easting - plane.At(0, 0).easting) * 1000) / 1000 + 0.0,
          std::round((at.northing - plane.At(0, 0).northing) * 1000) / 1000 + 0.0};
}

}  // namespace

BoomSet ReadBoomSet(const std::string& basePath) {
  const ReadSet read = ReadShapeSet(basePath, RecordBoxes::kAny);
  BoomSet set{read.box, {}};
  for (std::size_t i = 0; i < read.records.size(); ++i) {
    set.shapes.push_back({read.records[i], read.rows[i]});
  }
  return set;
}

BoomSet BoomFixture::ExportedSet() {
  EXPECT_TRUE(Export().made);
  return ReadBoomSet(base_);
}

std::vector<double> BoomFixture::Easts(const BoomShape& shape) {
  std::vector<double> easts;
  for (const geo::GeoPoint point : shape.points) easts.push_back(FromReference(point).easting);
  return easts;
}

std::vector<double> BoomFixture::Norths(const BoomShape& shape) {
  std::vector<double> norths;
  for (const geo::GeoPoint point : shape.points) norths.push_back(FromReference(point).northing);
  return norths;
}

void BoomFixture::ReferenceOnly() { builder_.Reference(kStart, 47, -97.5); }

void BoomFixture::ExpectSubscriptError(const std::string& text) {
  try {
    Export();
    ADD_FAILURE() << "no error";
  } catch (const exports::SubscriptError& error) {
    EXPECT_EQ(error.what(), text);
  }
}

void BoomFixture::ReferenceAndDisc() {
  ReferenceOnly();
  builder_.Implement(kStart, "Disc", {{4, 0, 0, 0}});
}

}  // namespace kestrin::test
