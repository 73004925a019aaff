#include "gdal/layerDefinition.h"

#include <cpl_error.h>
#include <ogr_spatialref.h>

#include <exception>
#include <utility>

#include "export/outcomeTexts.h"

namespace kestrin::gdal {
namespace {

/// From this width on a whole number need not fit 32 bits.
constexpr int kWideNumber = 10;

OGRFieldType TypeOf(const shapefile::Field& field) {
  if (field.type == 'C') return OFTString;
  if (field.decimals > 0) return OFTReal;
  return field.width < kWideNumber ? OFTInteger : OFTInteger64;
}

void AddField(OGRFeatureDefn& definition, const shapefile::Field& field) {
  OGRFieldDefn added(field.name.c_str(), TypeOf(field));
  added.SetWidth(field.width);
  added.SetPrecision(field.decimals);
  definition.AddFieldDefn(&added);
}

}  // namespace

LayerDefinition::LayerDefinition(const exports::ExportKind& kind, OGRwkbGeometryType geometry,
                                 JobSource job)
    : OGRFeatureDefn(std::string(kind.name).c_str()), kind_(kind), job_(std::move(job)) {
  SetGeomType(geometry);
  auto* nad83 = new OGRSpatialReference;
  nad83->importFromEPSG(4269);
  // Longitude comes first, as in the sets.
  nad83->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  GetGeomFieldDefn(0)->SetSpatialRef(nad83);
  nad83->Release();
}

int LayerDefinition::GetFieldCount() const {
  Complete();
  return OGRFeatureDefn::GetFieldCount();
}

OGRFieldDefn* LayerDefinition::GetFieldDefn(int index) {
  Complete();
  return OGRFeatureDefn::GetFieldDefn(index);
}

const OGRFieldDefn* LayerDefinition::GetFieldDefn(int index) const {
  Complete();
  return OGRFeatureDefn::GetFieldDefn(index);
}

int LayerDefinition::GetFieldIndex(const char* name) const {
  Complete();
  return OGRFeatureDefn::GetFieldIndex(name);
}

void LayerDefinition::Complete() const {
  std::call_once(completed_, [this] {
    try {
      for (const shapefile::Field& field : kind_.fields(job_.path)) AddField(self_, field);
    } catch (const std::exception& error) {
      CPLError(CE_Failure, CPLE_AppDefined, "%s", exports::NotMadeText(kind_.name, error).c_str());
    }
  });
}

}  // namespace kestrin::gdal
