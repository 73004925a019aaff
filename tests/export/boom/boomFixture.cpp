#include "tests/export/boom/boomFixture.h"

#include <cmath>
#include <filesystem>
#include <fstream>

#include "geo/localOffsets.h"

namespace kestrin::test {
namespace {

const jobstore::ReferenceRow kReference{{}, 47, -97.5};

geo::UtmPoint FromReference(geo::GeoPoint point) {
  const geo::WorkingPlane plane(kReference);
  double northing = point.latitude;
  double easting = point.longitude;
  EXPECT_EQ(geo::GeoToUtm(northing, easting, 14), 0);
  return {std::round((easting - plane.Origin().easting) * 1000) / 1000 + 0.0,
          std::round((northing - plane.Origin().northing) * 1000) / 1000 + 0.0};
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
  for (const geo::GeoPoint point : shape.points) easts.push_back(FromReference(point).easting);
  return easts;
}

std::vector<double> BoomFixture::Norths(const BoomShape& shape) {
  std::vector<double> norths;
  for (const geo::GeoPoint point : shape.points) norths.push_back(FromReference(point).northing);
  return norths;
}

void BoomFixture::ReferenceOnly() { builder.Reference(kStart, 47, -97.5); }

void BoomFixture::ReferenceAndDisc() {
  ReferenceOnly();
  builder.Implement(kStart, "Disc", {{4, 0, 0, 0}});
}

}  // namespace kestrin::test
