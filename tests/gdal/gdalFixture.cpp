#include "tests/gdal/gdalFixture.h"

#include <gdal_utils.h>

#include <filesystem>

#include "base/fileSystem.h"
#include "tests/support/recordingHost.h"

namespace kestrin::test {
namespace {

void CPL_STDCALL Note(CPLErr grade, CPLErrorNum, const char* text) {
  auto& texts = *static_cast<std::vector<std::string>*>(CPLGetErrorHandlerUserData());
  if (grade == CE_Warning) texts.push_back("warning: " + std::string(text));
  if (grade >= CE_Failure) texts.push_back("failure: " + std::string(text));
}

std::string WellKnownBytes(const OGRGeometry& geometry) {
  std::string bytes(geometry.WkbSize(), '\0');
  geometry.exportToWkb(wkbNDR, reinterpret_cast<unsigned char*>(bytes.data()), wkbVariantIso);
  return bytes;
}

}  // namespace

ToldErrors::ToldErrors() { CPLPushErrorHandlerEx(Note, &texts_); }
ToldErrors::~ToldErrors() { CPLPopErrorHandler(); }

GdalFixture::GdalFixture() {
  static const bool registered = [] {
    CPLSetConfigOption("GDAL_DRIVER_PATH", KESTRIN_GDAL_FOLDER);
    GDALAllRegister();
    return GDALGetDriverByName("Kestrin") != nullptr;
  }();
  EXPECT_TRUE(registered);
}

std::string GdalFixture::Sample(const std::string& name, std::string_view profile,
                                std::int64_t rows) const {
  const std::string path = folder_ / name;
  sample::MakeSampleJob(path, {.profile = std::string(profile), .rows = rows});
  return path;
}

GDALDatasetUniquePtr GdalFixture::Open(const std::string& path, const Options& options) {
  Options ended = options;
  ended.push_back(nullptr);
  return GDALDatasetUniquePtr(
      GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR, nullptr, ended.data()));
}

GDALDatasetUniquePtr GdalFixture::OpenJob(const std::string& path, const Options& options) {
  GDALDatasetUniquePtr opened = Open(path, options);
  EXPECT_STREQ(opened ? opened->GetDriverName() : "no driver", "Kestrin") << path;
  return opened;
}

GDALDatasetUniquePtr GdalFixture::OpenSet(const exports::ExportKind& kind,
                                          const std::string& job) const {
  const std::string base = folder_ / ("set" + std::string(kind.suffix));
  RecordingHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{host, *files, {.withProjection = true, .lasting = false}};
  try {
    if (!kind.procedure(base, job, run).made) return nullptr;
  } catch (const exports::SubscriptError&) {
    return nullptr;
  }
  return Open(base + ".shp");
}

std::vector<std::string> GdalFixture::LeftBehind() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(temporary_.Path())) {
    names.push_back(base::Utf8Of(entry.path()));
  }
  return names;
}

GDALDatasetUniquePtr Translated(GDALDataset& from, const std::string& to,
                                std::vector<std::string> arguments) {
  std::vector<char*> given;
  for (std::string& argument : arguments) given.push_back(argument.data());
  given.push_back(nullptr);
  GDALVectorTranslateOptions* options = GDALVectorTranslateOptionsNew(given.data(), nullptr);
  GDALDatasetH source = &from;
  GDALDatasetH made = GDALVectorTranslate(to.c_str(), nullptr, 1, &source, options, nullptr);
  GDALVectorTranslateOptionsFree(options);
  return GDALDatasetUniquePtr(GDALDataset::FromHandle(made));
}

std::string InWords(OGRFeature& feature, OGRwkbGeometryType multi) {
  std::string words = "feature " + std::to_string(feature.GetFID());
  for (int i = 0; i < feature.GetFieldCount(); ++i) {
    words += std::string("; ") + feature.GetFieldDefnRef(i)->GetNameRef() + " = ";
    words += feature.IsFieldSetAndNotNull(i) ? feature.GetFieldAsString(i) : "nothing";
  }
  if (OGRGeometry* shape = feature.GetGeometryRef()) {
    if (shape->getGeometryType() == wkbLineString && shape->toLineString()->getNumPoints() == 1) {
      OGRPoint only;
      shape->toLineString()->StartPoint(&only);
      shape->toLineString()->addPoint(&only);
    }
    if (multi != wkbUnknown && OGR_GT_GetCollection(shape->getGeometryType()) == multi) {
      feature.SetGeometryDirectly(OGRGeometryFactory::forceTo(feature.StealGeometry(), multi));
      shape = feature.GetGeometryRef();
    }
    words += "; " + WellKnownBytes(*shape);
  }
  return words;
}

std::vector<std::string> FeaturesOf(OGRLayer& layer, OGRwkbGeometryType multi) {
  std::vector<std::string> features;
  while (const OGRFeatureUniquePtr feature{layer.GetNextFeature()}) {
    features.push_back(InWords(*feature, multi));
  }
  return features;
}

}  // namespace kestrin::test
