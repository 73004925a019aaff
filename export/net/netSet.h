#pragma once

#include <array>
#include <string>
#include <vector>

#include "export/exportRun.h"
#include "export/net/pieces.h"
#include "geo/workingPlane.h"
#include "shapefile/attributeTable.h"

namespace kestrin::net {

extern const std::array<shapefile::Field, 4> kFields;

/// What a job's ground comes to, in square metres.
struct Totals {
  double net = 0;
  double gross = 0;

  double OverlapPerCent() const;
  /// "net 98.1 acres (39.7 ha), swept 123.4, overlap 20.5 %".
  std::string InWords() const;
};

/// Writes the pieces as a polygon set in degrees, each line valid there too. Yields in between.
/// Throws what the files throw; then nothing stays of the set.
void WriteNetSet(const std::string& basePath, const std::vector<NetPiece>& pieces,
                 const Totals& totals, const geo::WorkingPlane& plane, exports::ExportRun& run);

}  // namespace kestrin::net
