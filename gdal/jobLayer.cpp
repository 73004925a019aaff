#include "gdal/jobLayer.h"

#include <cpl_string.h>

#include <algorithm>
#include <memory>

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

}  // namespace

JobLayer::JobLayer(const exports::ExportKind& kind, OGRwkbGeometryType geometry,
                   const JobSource& job)
    : kind_(kind), job_(job), definition_(new LayerDefinition(kind, geometry, job)) {
  definition_->Reference();
  SetDescription(definition_->GetName());
}

JobLayer::~JobLayer() { definition_->Release(); }

OGRLayer* JobLayer::Set() {
  std::call_once(making_, [this] { Make(); });
  return set_ ? set_->GetLayer(0) : nullptr;
}

void JobLayer::Make() {
  set_ = MakeSet(kind_, job_);
  // A job that is being recorded may have got a product since its fields were told.
  if (set_ && !SameFields(*definition_, *set_->GetLayer(0)->GetLayerDefn())) {
    CPLError(CE_Failure, CPLE_AppDefined, "The job has changed since it was opened: %s",
             job_.path.c_str());
    set_.reset();
  }
  made_ = true;
}

void JobLayer::ResetReading() {
  if (made_ && set_) set_->GetLayer(0)->ResetReading();
}

OGRFeature* JobLayer::GetNextRawFeature() {
  OGRLayer* set = Set();
  return set != nullptr ? AsOurs(OGRFeatureUniquePtr(set->GetNextFeature())) : nullptr;
}

OGRErr JobLayer::SetNextByIndex(GIntBig index) {
  if (Filtered()) return OGRLayer::SetNextByIndex(index);
  OGRLayer* set = Set();
  return set != nullptr ? set->SetNextByIndex(index) : OGRERR_FAILURE;
}

OGRFeature* JobLayer::GetFeature(GIntBig id) {
  OGRLayer* set = Set();
  return set != nullptr ? AsOurs(OGRFeatureUniquePtr(set->GetFeature(id))) : nullptr;
}

int JobLayer::TestCapability(const char* capability) {
  if (EQUAL(capability, OLCStringsAsUTF8)) return TRUE;
  if (EQUAL(capability, OLCRandomRead)) return TRUE;
  if (EQUAL(capability, OLCFastGetExtent)) return made_ ? TRUE : FALSE;
  const bool counted = made_ && !Filtered();
  return counted && (EQUAL(capability, OLCFastFeatureCount) ||
                     EQUAL(capability, OLCFastSetNextByIndex))
             ? TRUE
             : FALSE;
}

GIntBig JobLayer::GetFeatureCount(int force) {
  if (force == FALSE && !made_) return -1;
  if (Filtered()) return OGRLayer::GetFeatureCount(force);
  OGRLayer* set = Set();
  return set != nullptr ? set->GetFeatureCount(TRUE) : 0;
}

OGRErr JobLayer::GetExtent(OGREnvelope* extent, int force) {
  OGRLayer* set = force != FALSE || made_ ? Set() : nullptr;
  // A set without a record has an extent all the same, in the sea off Africa.
  const bool any = set != nullptr && set->GetFeatureCount(TRUE) > 0;
  return any ? set->GetExtent(extent, TRUE) : OGRERR_FAILURE;
}

OGRFeature* JobLayer::AsOurs(OGRFeatureUniquePtr feature) const {
  if (!feature) return nullptr;
  auto ours = std::make_unique<OGRFeature>(definition_);
  ours->SetFID(feature->GetFID());
  for (int i = 0; i < definition_->GetFieldCount(); ++i) {
    ours->SetField(i, feature->GetRawFieldRef(i));
    if (definition_->GetFieldDefn(i)->GetType() == OFTString) MendEncoding(*ours, i);
  }
  if (OGRGeometry* shape = feature->StealGeometry()) {
    const OGRwkbGeometryType type = definition_->GetGeomType();
    if (OGR_GT_GetCollection(shape->getGeometryType()) == type) {
      shape = OGRGeometryFactory::forceTo(shape, type);
    }
    shape->assignSpatialReference(definition_->GetGeomFieldDefn(0)->GetSpatialRef());
    ours->SetGeometryDirectly(shape);
  }
  return ours.release();
}

}  // namespace kestrin::gdal
