#include "gdal/sharedSet.h"

#include <cpl_error.h>

#include <array>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "base/fileSystem.h"
#include "base/runHost.h"
#include "base/utf8Path.h"
#include "export/outcomeTexts.h"
#include "export/setNames.h"
#include "jobstore/job.h"
#include "jobstore/opening/jobFile.h"
#include "jobstore/opening/privateCopy.h"
#include "jobstore/queries.h"

namespace kestrin::gdal {
namespace {

namespace fs = std::filesystem;

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

/// Size and time of a job's file and of those beside it: whether it is still the same.
using Stamp = std::vector<std::pair<std::uintmax_t, fs::file_time_type>>;

Stamp StampOf(const fs::path& job) {
  Stamp stamp;
  for (const char* suffix : {"", "-wal", "-journal"}) {
    const fs::path file = opening::Beside(job, suffix);
    std::error_code none;
    stamp.emplace_back(opening::SizeOf(file), fs::last_write_time(file, none));
  }
  return stamp;
}

std::int64_t EpochsOf(const JobSource& job) {
  jobstore::Job opened(job.path);
  std::int32_t count = 0;
  jobstore::ReadFirst<jobstore::EpochCount>(opened, count);
  return count;
}

GDALDatasetUniquePtr OpenSet(const std::string& basePath) {
  const std::string path = basePath + std::string(exports::kShapeExtension);
  const std::array<const char*, 2> drivers{"ESRI Shapefile", nullptr};
  const std::array<const char*, 2> options{"ENCODING=UTF-8", nullptr};
  return GDALDatasetUniquePtr(GDALDataset::Open(
      path.c_str(), GDAL_OF_VECTOR | GDAL_OF_VERBOSE_ERROR, drivers.data(), options.data()));
}

}  // namespace

std::shared_ptr<SharedSet> SharedSet::Of(const exports::ExportKind& kind, const JobSource& job) {
  using Key = std::tuple<const exports::ExportKind*, std::string, bool, Stamp>;
  static std::mutex mutex;
  static std::map<Key, std::weak_ptr<SharedSet>> sets;
  const Key key{&kind, job.path, job.allSections, StampOf(base::PathOf(job.path))};
  const std::lock_guard lock(mutex);
  std::erase_if(sets, [](const auto& entry) { return entry.second.expired(); });
  std::shared_ptr<SharedSet> set = sets[key].lock();
  if (!set) sets[key] = set = std::make_shared<SharedSet>(kind, job);
  return set;
}

SharedSet::SharedSet(const exports::ExportKind& kind, JobSource job)
    : kind_(kind), job_(std::move(job)) {}

bool SharedSet::Make() {
  const std::lock_guard lock(mutex_);
  try {
    if (layer_ == nullptr) MakeAndOpen();
  } catch (const base::FileError& error) {
    Tell(CE_Failure, exports::NotWrittenText(error));
  } catch (const std::exception& error) {
    Tell(CE_Failure, exports::NotMadeText(kind_.name, error));
  }
  if (!warning_.empty()) Tell(CE_Warning, warning_);
  return layer_ != nullptr;
}

void SharedSet::MakeAndOpen() {
  // Files that are open outlive their names.
  const opening::PrivateFolder folder;
  if (folder.Error()) throw base::FileError("the temporary folder", folder.Error().message());
  const std::string basePath = base::Utf8Of(folder.Path() / kind_.name);
  const auto files = base::NativeFileSystem();
  LayerHost host;
  exports::ExportRun run{host, *files, {.lasting = false}, job_.allSections};
  const exports::ExportOutcome outcome = kind_.procedure(basePath, job_.path, run);
  if (outcome.made) opened_ = OpenSet(basePath);
  if (opened_) layer_ = opened_->GetLayer(0);
  if (layer_ != nullptr) count_ = layer_->GetFeatureCount();
  Report(outcome, host.Told());
}

void SharedSet::Report(const exports::ExportOutcome& outcome, bool told) {
  if (outcome.lastStep != jobstore::kDone) {
    const std::string text = exports::NotReadToEndText(outcome, EpochsOf(job_));
    if (outcome.made) {
      warning_ = text;
    } else {
      Tell(CE_Failure, text);
    }
  } else if (!outcome.made && !told) {
    Tell(CE_Warning, exports::kNothingToExport + outcome.summary);
  }
}

bool SharedSet::HasExtent(OGREnvelope& extent) {
  const std::lock_guard lock(mutex_);
  // A set without a record has an extent all the same, in the sea off Africa.
  return count_ > 0 && layer_->GetExtent(&extent, TRUE) == OGRERR_NONE;
}

OGRFeatureUniquePtr SharedSet::Feature(GIntBig id) {
  if (id < 0 || id >= count_) return nullptr;
  const std::lock_guard lock(mutex_);
  return OGRFeatureUniquePtr(layer_->GetFeature(id));
}

}  // namespace kestrin::gdal
