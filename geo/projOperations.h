#pragma once

#include <array>

#include "geo/projDefinition.h"

using PJ = struct PJconsts;
using PJ_CONTEXT = struct pj_ctx;

namespace kestrin::geo {

/// PROJ's own objects, one for each UTM zone asked for, made once and kept: to make
/// one costs a hundred times what it costs to convert a point with it. At most 60
/// can come together. Serves one thread.
class ProjOperations {
 public:
  ProjOperations();
  ~ProjOperations();
  ProjOperations(const ProjOperations&) = delete;
  ProjOperations& operator=(const ProjOperations&) = delete;

  /// The projection of zone 1 to 60, radians to metres; null when PROJ refuses it.
  PJ* OfZone(int zone) {
    PJ*& operation = operations_[static_cast<std::size_t>(zone)];
    if (operation == nullptr) operation = Make(zone);
    return operation;
  }

 private:
  PJ* Make(int zone);

  PJ_CONTEXT* context_;
  std::array<PJ*, CoordinateSystem::kZones + 1> operations_{};
};

}  // namespace kestrin::geo
