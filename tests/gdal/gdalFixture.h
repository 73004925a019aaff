#pragma once

#include <gdal_priv.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>

#include <string>
#include <vector>

#include "export/exportKinds.h"
#include "tests/support/setting.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::test {

/// What CPLError is told by this thread in a scope, instead of the terminal.
class ToldErrors {
 public:
  ToldErrors();
  ~ToldErrors();
  ToldErrors(const ToldErrors&) = delete;
  ToldErrors& operator=(const ToldErrors&) = delete;

  /// "failure: text" or "warning: text", in their order; what is only for debugging is left out.
  const std::vector<std::string>& Texts() const { return texts_; }

 private:
  std::vector<std::string> texts_;
};

/// A GDAL with the driver as a plugin, a folder for jobs, and a temporary folder that nothing
/// else uses.
class GdalFixture : public testing::Test {
 protected:
  using Options = std::vector<const char*>;

  GdalFixture();

  /// A sample job in the folder.
  std::string Sample(const std::string& name, std::string_view profile = "sprayer",
                     std::int64_t rows = 400) const;

  /// Opens a file with whichever driver wants it.
  static GDALDatasetUniquePtr Open(const std::string& path, const Options& options = {});
  /// Opens a job; fails the test where ours is not the driver.
  static GDALDatasetUniquePtr OpenJob(const std::string& path, const Options& options = {});

  /// The set of a job, read by GDAL's shapefile driver; null where none is made.
  GDALDatasetUniquePtr OpenSet(const exports::ExportKind& kind, const std::string& job) const;

  /// Names in the temporary folder.
  std::vector<std::string> LeftBehind() const;

  TempFolder folder_;
  TempFolder temporary_;

 private:
  Setting setting_{"TMPDIR", base::Utf8Of(temporary_.Path())};
};

/// What ogr2ogr makes of a data set, so many of its arguments given; null where it fails.
GDALDatasetUniquePtr Translated(GDALDataset& from, const std::string& to,
                                std::vector<std::string> arguments);

/// A feature in words: ID, fields with their values, geometry to the bit. A line of one point has
/// it twice, and a geometry of a set that is to be one of the type `multi` becomes that first.
std::string InWords(OGRFeature& feature, OGRwkbGeometryType multi = wkbUnknown);

/// All features that a layer gives from where it stands.
std::vector<std::string> FeaturesOf(OGRLayer& layer, OGRwkbGeometryType multi = wkbUnknown);

}  // namespace kestrin::test
