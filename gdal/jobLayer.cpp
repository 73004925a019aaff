#include "gdal/jobLayer.h"

#include <cpl_string.h>

#include <exception>
#include <memory>
#include <utility>

#include "export/outcomeTexts.h"

namespace kestrin::gdal {
namespace {

bool SameFields(const OGRFeatureDefn& one, const OGRFeatureDefn& other) {
  if (one.GetFieldCount() != other.GetFieldCount()) return false;
  for (int i = 0; i < one.GetFieldCount(); ++i) {
    if (!one.GetFieldDefn(i)->IsSame(other.GetFieldDefn(i))) return false;
  }
  return true;
}

/// Hosts rely on UTF-8, and a job may hold names in its maker's code page.
void MendEncoding(OGRFeature& feature, int field) {
  const char* text = feature.GetFieldAsString(field);
  if (CPLIsUTF8(text, -1) != 0) return;
  const std::unique_ptr<char, decltype(&VSIFree)> mended(CPLRecode(text, "CP1252", CPL_ENC_UTF8),
                                                         VSIFree);
  feature.SetField(field, mended.get());
}

/// A shape of the layer's type that every host takes, in the place of the set's.
OGRGeometry* Mended(OGRGeometry* shape, OGRwkbGeometryType type) {
  if (shape == nullptr) return nullptr;
  if (wkbFlatten(shape->getGeometryType()) == wkbLineString) {
    // The stretch of a single row. Hosts that work with GEOS know no line of one point.
    OGRLineString* line = shape->toLineString();
    if (line->getNumPoints() == 1) line->addPoint(line->getX(0), line->getY(0));
  }
  const bool single = OGR_GT_GetCollection(shape->getGeometryType()) == type;
  return single ? OGRGeometryFactory::forceTo(shape, type) : shape;
}

}  // namespace

JobLayer::JobLayer(const exports::ExportKind& kind, OGRwkbGeometryType geometry,
                   const JobSource& job)
    : kind_(kind), job_(job), definition_(new LayerDefinition(kind, geometry, job)) {
  definition_->Reference();
  SetDescription(definition_->GetName());
}

JobLayer::~JobLayer() { definition_->Release(); }

SharedSet* JobLayer::Set() {
  try {
    if (!std::exchange(asked_, true)) FindSet();
  } catch (const std::exception& error) {
    CPLError(CE_Failure, CPLE_AppDefined, "%s", exports::NotMadeText(kind_.name, error).c_str());
  }
  return set_.get();
}

void JobLayer::FindSet() {
  set_ = SharedSet::Of(kind_, job_);
  if (!set_->Make()) {
    set_.reset();
  } else if (!SameFields(*definition_, set_->Definition())) {
    // A job that is being recorded may have got a product since its fields were told.
    CPLError(CE_Failure, CPLE_AppDefined, "The job has changed since it was opened: %s",
             job_.path.c_str());
    set_.reset();
  }
}

OGRFeature* JobLayer::GetNextRawFeature() {
  SharedSet* set = Set();
  return set != nullptr ? AsOurs(set->Feature(next_++)) : nullptr;
}

OGRErr JobLayer::SetNextByIndex(GIntBig index) {
  if (Filtered()) return OGRLayer::SetNextByIndex(index);
  const SharedSet* set = Set();
  if (set == nullptr || index < 0 || index >= set->Count()) return OGRERR_FAILURE;
  next_ = index;
  return OGRERR_NONE;
}

OGRFeature* JobLayer::GetFeature(GIntBig id) {
  SharedSet* set = Set();
  return set != nullptr ? AsOurs(set->Feature(id)) : nullptr;
}

int JobLayer::TestCapability(const char* capability) {
  if (EQUAL(capability, OLCStringsAsUTF8)) return TRUE;
  if (EQUAL(capability, OLCRandomRead)) return TRUE;
  if (EQUAL(capability, OLCFastGetExtent)) return asked_ ? TRUE : FALSE;
  const bool counted = asked_ && !Filtered();
  return counted && (EQUAL(capability, OLCFastFeatureCount) ||
                     EQUAL(capability, OLCFastSetNextByIndex))
             ? TRUE
             : FALSE;
}

GIntBig JobLayer::GetFeatureCount(int force) {
  if (force == FALSE && !asked_) return -1;
  if (Filtered()) return OGRLayer::GetFeatureCount(force);
  const SharedSet* set = Set();
  return set != nullptr ? set->Count() : 0;
}

OGRErr JobLayer::GetExtent(OGREnvelope* extent, int force) {
  SharedSet* set = force != FALSE || asked_ ? Set() : nullptr;
  return set != nullptr && set->HasExtent(*extent) ? OGRERR_NONE : OGRERR_FAILURE;
}

OGRFeature* JobLayer::AsOurs(OGRFeatureUniquePtr feature) const {
  if (!feature) return nullptr;
  auto ours = std::make_unique<OGRFeature>(definition_);
  ours->SetFID(feature->GetFID());
  for (int i = 0; i < definition_->GetFieldCount(); ++i) {
    ours->SetField(i, feature->GetRawFieldRef(i));
    if (definition_->GetFieldDefn(i)->GetType() == OFTString) MendEncoding(*ours, i);
  }
  if (OGRGeometry* shape = Mended(feature->StealGeometry(), definition_->GetGeomType())) {
    shape->assignSpatialReference(definition_->GetGeomFieldDefn(0)->GetSpatialRef());
    ours->SetGeometryDirectly(shape);
  }
  return ours.release();
}

}  // namespace kestrin::gdal
