#pragma once

#include <ogrsf_frmts.h>

#include <memory>

#include "gdal/layerDefinition.h"
#include "gdal/sharedSet.h"

namespace kestrin::gdal {

/// The set of a kind as a layer: features, order, values, IDs, count and extent are the set's. It
/// is made when the first of them is asked for; what there is to say is said then, once
/// (SharedSet), and without a set the layer is empty. One thread at a time may use a layer while
/// others use other layers.
class JobLayer final : public OGRLayer, private OGRGetNextFeatureThroughRaw<JobLayer> {
 public:
  /// `kind` must outlive the layer. Where `geometry` is wkbMultiLineString, a line becomes one of
  /// one part, so that all features are of the layer's type; a line of one point has it twice.
  JobLayer(const exports::ExportKind& kind, OGRwkbGeometryType geometry, const JobSource& job);
  ~JobLayer() override;
  JobLayer(const JobLayer&) = delete;
  JobLayer& operator=(const JobLayer&) = delete;

  OGRFeatureDefn* GetLayerDefn() override { return definition_; }
  void ResetReading() override { next_ = 0; }
  DEFINE_GET_NEXT_FEATURE_THROUGH_RAW(JobLayer)
  OGRErr SetNextByIndex(GIntBig index) override;
  OGRFeature* GetFeature(GIntBig id) override;
  int TestCapability(const char* capability) override;

  /// Not known, unless forced, before there is a set.
  GIntBig GetFeatureCount(int force) override;
  OGRErr GetExtent(OGREnvelope* extent, int force) override;
  using OGRLayer::GetExtent;

 private:
  SharedSet* Set();
  void FindSet();
  bool Filtered() const { return m_poFilterGeom != nullptr || m_poAttrQuery != nullptr; }
  OGRFeature* GetNextRawFeature();
  OGRFeature* AsOurs(OGRFeatureUniquePtr feature) const;

  const exports::ExportKind& kind_;
  JobSource job_;
  LayerDefinition* definition_;  // counted: features may outlive their layer
  bool asked_ = false;           // for the set
  std::shared_ptr<SharedSet> set_;
  GIntBig next_ = 0;
};

}  // namespace kestrin::gdal
