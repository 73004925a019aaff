#include "gdal/jobDataset.h"

#include <cstddef>

namespace kestrin::gdal {
namespace {

OGRwkbGeometryType GeometryOf(exports::Shape shape) {
  switch (shape) {
    case exports::Shape::kPoint:
      return wkbPoint;
    case exports::Shape::kLine:
      return wkbLineString;
    case exports::Shape::kLines:
      return wkbMultiLineString;
    case exports::Shape::kPolygon:
      return wkbPolygon;
  }
  return wkbUnknown;
}

}  // namespace

JobDataset::JobDataset(const JobSource& job, bool listNet)
    : listed_(exports::kKindCount + (listNet ? static_cast<int>(exports::kNamedKinds.size()) : 0)) {
  for (const exports::ExportKind* kind : exports::AllKinds()) {
    layers_.push_back(std::make_unique<JobLayer>(*kind, GeometryOf(kind->shape), job));
  }
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
