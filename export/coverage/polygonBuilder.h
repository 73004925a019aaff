#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "export/coverage/swath.h"

namespace kestrin::coverage {

/// Turns the GPS rows of a job into polygons, one at a time. A polygon begins at the first
/// row, at each row marked so, and at each row whose way from the row before meets the way
/// driven in the same polygon: there it is cut. A row that moves neither end of the
/// implement is passed over, unless it is marked.
///
/// Nothing fails but what the sink throws. Memory grows with the rows of one polygon; a
/// million rows in one polygon cost about 0.2 s.
class PolygonBuilder {
 public:
  /// The two ends of the implement at the rows of one polygon.
  struct Edges {
    ground::Line left;
    ground::Line right;
  };

  /// `sink` takes the polygons in order, as soon as each is complete; none at all when the
  /// job has fewer than four rows.
  explicit PolygonBuilder(std::function<void(Edges)> sink) : sink_(std::move(sink)) {}

  /// Takes the next row; `begins` when it is marked as beginning a stretch.
  void Add(const SwathRow& row, bool begins);

  /// Completes the last polygon; after the last row.
  void Finish() { Close(); }

 private:
  /// A job of fewer rows than this has no coverage to speak of.
  static constexpr std::size_t kFewestRows = 4;

  void Begin(const SwathRow& row);
  void Close();

  std::function<void(Edges)> sink_;
  Swath swath_;
  std::size_t rows_ = 0;         // taken so far, of the whole job
  std::size_t startIndex_ = 0;   // of the polygon's first row, counted from 1
  std::vector<Edges> complete_;  // and kept back until there are rows enough
};

}  // namespace kestrin::coverage
