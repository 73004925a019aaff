#include "gdal/jobDataset.h"

#include <array>
#include <cstddef>

namespace kestrin::gdal {
namespace {

/// In the order of the kinds. A record of the boom set has a line per section and epoch.
constexpr std::array<OGRwkbGeometryType, exports::kKindCount> kGeometries{
    wkbLineString, wkbMultiLineString, wkbPolygon, wkbPoint};
static_assert(kGeometries.back() != wkbUnknown, "a kind without a type of geometry");

}  // namespace

JobDataset::JobDataset(const JobSource& job, bool listNet)
    : listed_(exports::kKindCount + (listNet ? 1 : 0)) {
  for (std::size_t i = 0; i < exports::kExportKinds.size(); ++i) {
    layers_.push_back(std::make_unique<JobLayer>(exports::kExportKinds[i], kGeometries[i], job));
  }
  layers_.push_back(std::make_unique<JobLayer>(exports::kNetKind, wkbPolygon, job));
}

OGRLayer* JobDataset::GetLayer(int index) {
  if (index < 0 || index >= listed_) return nullptr;
  return layers_[static_cast<std::size_t>(index)].get();
}

OGRLayer* JobDataset::GetLayerByName(const char* name) {
  for (const auto& layer : layers_) {
    if (EQUAL(name, layer->GetName())) return layer.get();
  }
  return nullptr;
}

}  // namespace kestrin::gdal
