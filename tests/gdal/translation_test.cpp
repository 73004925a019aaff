#include <gmock/gmock.h>

#include "tests/gdal/gdalFixture.h"
#include "tests/support/toolOutput.h"

namespace kestrin::gdal {
namespace {

using testing::HasSubstr;
using testing::Not;

struct Format {
  const char* name;
  const char* extension;
  std::vector<std::string> options;
  double tolerance;  ///< of coordinates: degrees
};
void PrintTo(const Format& format, std::ostream* out) { *out << format.name; }

/// A job turned into what others use, and read back.
class Translation : public test::GdalFixture, public testing::WithParamInterface<Format> {
 protected:
  static void ExpectSameFeature(OGRFeature& before, OGRFeature& after);
};

void Translation::ExpectSameFeature(OGRFeature& before, OGRFeature& after) {
  for (int i = 0; i < before.GetFieldCount(); ++i) {
    const char* name = before.GetFieldDefnRef(i)->GetNameRef();
    const int field = after.GetFieldIndex(name);
    ASSERT_GE(field, 0) << name;
    if (before.GetFieldDefnRef(i)->GetType() == OFTString) {
      EXPECT_STREQ(before.GetFieldAsString(i), after.GetFieldAsString(field)) << name;
    } else {
      EXPECT_EQ(before.GetFieldAsDouble(i), after.GetFieldAsDouble(field)) << name;
    }
  }
  ASSERT_TRUE(after.GetGeometryRef());
  EXPECT_EQ(after.GetGeometryRef()->getGeometryType(), before.GetGeometryRef()->getGeometryType());
  OGREnvelope one, other;
  before.GetGeometryRef()->getEnvelope(&one);
  after.GetGeometryRef()->getEnvelope(&other);
  const double tolerance = GetParam().tolerance;
  EXPECT_NEAR(one.MinX, other.MinX, tolerance);
  EXPECT_NEAR(one.MaxY, other.MaxY, tolerance);
  if (tolerance == 0) {
    EXPECT_TRUE(before.GetGeometryRef()->Equals(after.GetGeometryRef()));
  }
}

TEST_P(Translation, KeepsEveryFeatureOfEveryLayer) {
  const auto job = OpenJob(Sample("job.sqlite", "unicode"));
  for (const exports::ExportKind* kind : exports::AllKinds()) {
    SCOPED_TRACE(kind->name);
    const std::string name(kind->name);
    const std::string target = folder_ / (name + "." + GetParam().extension);
    std::vector<std::string> arguments = {"-f", GetParam().name, name};
    arguments.insert(arguments.end(), GetParam().options.begin(), GetParam().options.end());
    const test::ToldErrors errors;
    ASSERT_TRUE(test::Translated(*job, target, arguments));
    const auto copy = Open(target);
    ASSERT_TRUE(copy);
    OGRLayer* before = job->GetLayerByName(name.c_str());
    OGRLayer* after = copy->GetLayer(0);
    ASSERT_EQ(after->GetFeatureCount(), before->GetFeatureCount());
    before->ResetReading();
    while (const OGRFeatureUniquePtr feature{before->GetNextFeature()}) {
      const OGRFeatureUniquePtr same(after->GetNextFeature());
      ExpectSameFeature(*feature, *same);
    }
    EXPECT_THAT(errors.Texts(), testing::IsEmpty());
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, Translation,
                         testing::Values(Format{"GPKG", "gpkg", {}, 0},
                                         Format{"GeoJSON", "json", {}, 1e-12},
                                         Format{"CSV", "csv", {"-lco", "GEOMETRY=AS_WKT"}, 1e-12}),
                         [](const auto& format) { return std::string(format.param.name); });

/// The same as a user types it.
class Tools : public test::GdalFixture {
 protected:
  void SetUp() override {
#ifdef KESTRIN_WATCHED
    GTEST_SKIP() << "the driver is watched by a sanitizer, which the tools are not";
#endif
    for (const char* tool : {"ogrinfo", "ogr2ogr"}) {
      if (!test::Installed(tool)) GTEST_SKIP() << tool << " is not installed";
    }
  }
  std::string Line(const std::string& command) const {
    return test::Output("cd '" + base::Utf8Of(folder_.Path()) + "' && " + command);
  }

 private:
  test::Setting plugins_{"GDAL_DRIVER_PATH", KESTRIN_GDAL_FOLDER};
};

TEST_F(Tools, ListTheLayersOfAJob) {
  Sample("job.sqlite");
  EXPECT_EQ(Line("ogrinfo job.sqlite"),
            "INFO: Open of `job.sqlite'\n"
            "      using driver `Kestrin' successful.\n"
            "1: wire (Line String)\n"
            "2: boom (Multi Line String)\n"
            "3: poly (Polygon)\n"
            "4: point (Point)\n");
}

TEST_F(Tools, SayOfEachLayerWhatTheySayOfItsSet) {
  const std::string job = Sample("job.sqlite");
  for (const exports::ExportKind* kind : exports::AllKinds()) {
    ASSERT_TRUE(OpenSet(*kind, job));
    const std::string layer = Line("ogrinfo -so job.sqlite " + std::string(kind->name));
    const std::string set = Line("ogrinfo -so -al set" + std::string(kind->suffix) + ".shp");
    for (const char* mark : {"Feature Count: ", "Extent: ", "ID: ", "ID[\"EPSG\","}) {
      EXPECT_EQ(test::Behind(mark, layer), test::Behind(mark, set)) << kind->name;
      EXPECT_THAT(test::Behind(mark, layer), Not(testing::IsEmpty())) << mark;
    }
  }
}

TEST_F(Tools, MakeAGeoPackageOfAJobInOneLine) {
  Sample("job.sqlite");
  EXPECT_EQ(Line("ogr2ogr -f GPKG field.gpkg job.sqlite"), "");
  const std::string listed = Line("ogrinfo field.gpkg");
  for (const char* layer : {"1: wire (Line String)", "2: boom (Multi Line String)",
                            "3: poly (Polygon)", "4: point (Point)"}) {
    EXPECT_THAT(listed, HasSubstr(layer));
  }
  EXPECT_THAT(listed, Not(HasSubstr("net")));
}

TEST_F(Tools, HaveOneNameOfOurs) {
  const std::string names = Line("nm -D --defined-only " KESTRIN_GDAL_FOLDER "/ogr_Kestrin.so");
  EXPECT_THAT(names, testing::MatchesRegex("[0-9a-f]+ T RegisterOGRKestrin\n"));
}

}  // namespace
}  // namespace kestrin::gdal
