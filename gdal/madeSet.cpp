#include "gdal/madeSet.h"

#include <cpl_error.h>

#include <array>
#include <cstdint>
#include <exception>

#include "base/fileSystem.h"
#include "base/runHost.h"
#include "base/utf8Path.h"
#include "export/outcomeTexts.h"
#include "export/setNames.h"
#include "jobstore/job.h"
#include "jobstore/opening/privateCopy.h"
#include "jobstore/queries.h"

namespace kestrin::gdal {
namespace {

void Tell(CPLErr grade, const std::string& text) {
  CPLError(grade, CPLE_AppDefined, "%s", text.c_str());
}

/// GDAL's side of a set being made.
class LayerHost : public base::RunHost {
 public:
  void CountRow() override {}
  void Yield() override {}
  void ShowMessage(const std::string& text) override {
    told_ = true;
    Tell(CE_Failure, text);
  }
  bool Told() const { return told_; }

 private:
  bool told_ = false;
};

std::int64_t EpochsOf(const JobSource& job) {
  jobstore::Job opened(job.path);
  std::int32_t count = 0;
  jobstore::ReadFirst<jobstore::EpochCount>(opened, count);
  return count;
}

void Report(const exports::ExportOutcome& outcome, const JobSource& job, bool told) {
  if (outcome.lastStep != jobstore::kDone) {
    Tell(outcome.made ? CE_Warning : CE_Failure, exports::NotReadToEndText(outcome, EpochsOf(job)));
  } else if (!outcome.made && !told) {
    Tell(CE_Warning, exports::kNothingToExport + outcome.summary);
  }
}

GDALDatasetUniquePtr OpenSet(const std::string& basePath) {
  const std::string path = basePath + std::string(exports::kShapeExtension);
  const std::array<const char*, 2> drivers{"ESRI Shapefile", nullptr};
  const std::array<const char*, 2> options{"ENCODING=UTF-8", nullptr};
  return GDALDatasetUniquePtr(GDALDataset::Open(
      path.c_str(), GDAL_OF_VECTOR | GDAL_OF_VERBOSE_ERROR, drivers.data(), options.data()));
}

GDALDatasetUniquePtr MakeAndOpen(const exports::ExportKind& kind, const JobSource& job) {
  // Files that are open outlive their names.
  const opening::PrivateFolder folder;
  if (folder.Error()) throw base::FileError("the temporary folder", folder.Error().message());
  const std::string basePath = base::Utf8Of(folder.Path() / kind.name);
  const auto files = base::NativeFileSystem();
  LayerHost host;
  exports::ExportRun run{host, *files, {.lasting = false}, job.allSections};
  const exports::ExportOutcome outcome = kind.procedure(basePath, job.path, run);
  Report(outcome, job, host.Told());
  return outcome.made ? OpenSet(basePath) : nullptr;
}

}  // namespace

GDALDatasetUniquePtr MakeSet(const exports::ExportKind& kind, const JobSource& job) noexcept {
  try {
    return MakeAndOpen(kind, job);
  } catch (const base::FileError& error) {
    Tell(CE_Failure, exports::NotWrittenText(error));
  } catch (const std::exception& error) {
    Tell(CE_Failure, exports::NotMadeText(kind.name, error));
  }
  return nullptr;
}

}  // namespace kestrin::gdal
