#pragma once

#include <string>
#include <vector>

#include "export/exportRun.h"
#include "export/net/pieces.h"
#include "geo/workingPlane.h"

namespace kestrin::net {

/// What a job's ground comes to, in square metres.
struct Totals {
  double net = 0;
  double gross = 0;

  double OverlapPerCent() const;
  /// "net 98.1 acres (39.7 ha), swept 123.4, overlap 20.5 %".
  std::string InWords() const;
  /// For machines, as the set's table shows them: "acres", which its records add up to,
  /// "gross_acres", "overlap_percent".
  std::vector<exports::Figure> Figures(double acres) const;
};

/// Writes the pieces as a polygon set in degrees, each line valid there too. Returns their acres,
/// added up as the records show them. Yields in between.
/// Throws what the files throw; then nothing stays of the set.
double WriteNetSet(const std::string& basePath, const std::vector<NetPiece>& pieces,
                   const Totals& totals, const geo::WorkingPlane& plane, exports::ExportRun& run);

}  // namespace kestrin::net
