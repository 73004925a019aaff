#include "tests/export/setFixture.h"

#include <filesystem>
#include <fstream>

#include "base/utf8Path.h"
#include "geo/workingPlane.h"

namespace kestrin::test {

exports::ExportOutcome SetFixture::Export(const std::string& jobPath) {
  exports::ExportRun run{host_, *files_, options_};
  return procedure_(base_, jobPath, run);
}

ReadSet SetFixture::Exported() {
  EXPECT_TRUE(Export().made);
  EXPECT_TRUE(host_.messages.empty());
  return ReadShapeSet(base_);
}

void SetFixture::LeaveOldSet() {
  for (const char* extension : {".shp", ".shx", ".dbf"}) {
    std::ofstream(base::PathOf(base_ + extension)) << "old";
  }
}

void SetFixture::ExpectNothingWritten(const exports::ExportOutcome& outcome) const {
  EXPECT_FALSE(outcome.made);
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
    EXPECT_EQ(entry.path().filename(), "job.sqlite");
  }
}

geo::GeoPoint SetFixture::PointAt(double east, double north, double latitude, double longitude) {
  const geo::WorkingPlane plane(
      jobstore::ReferenceRow{{}, AsStored(latitude), AsStored(longitude)});
  return plane.ToGeo(plane.At(east, north));
}

}  // namespace kestrin::test
