#pragma once

#include <gdal_priv.h>

#include <memory>
#include <vector>

#include "gdal/jobLayer.h"

namespace kestrin::gdal {

/// A job as a vector source of layers `wire`, `boom`, `poly` and `point`; `net`, which takes
/// longest, has to be asked for by its name or is listed after them. Nothing of the job is read
/// before a layer is.
class JobDataset final : public GDALDataset {
 public:
  JobDataset(const JobSource& job, bool listNet);

  int GetLayerCount() override { return listed_; }
  OGRLayer* GetLayer(int index) override;
  OGRLayer* GetLayerByName(const char* name) override;

 private:
  std::vector<std::unique_ptr<JobLayer>> layers_;
  int listed_;
};

}  // namespace kestrin::gdal
