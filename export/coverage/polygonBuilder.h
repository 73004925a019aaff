#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "export/coverage/outline.h"
#include "export/coverage/rings.h"

namespace kestrin::coverage {

/// Turns the GPS rows of a job into rings, one polygon at a time.
class PolygonBuilder {
 public:
  /// `sink` takes the rings in order, as soon as each is complete; none at all when
  /// the job has too few rows.
  explicit PolygonBuilder(std::function<void(const Ring&)> sink) : sink_(std::move(sink)) {}

  /// Takes the next row; `begins` when it is marked as beginning a stretch.
  void Add(const SwathRow& row, bool begins);

  /// Completes the last ring.
  void Finish();

 private:
  /// A job of fewer rows than this has no coverage to speak of.
  static constexpr std::size_t kFewestRows = 4;

  void Begin(const SwathRow& row);
  void Close();

  std::function<void(const Ring&)> sink_;
  Outline outline_;
  SwathRow last_;
  std::size_t rows_ = 0;
  Ring ring_;
  std::vector<Ring> early_;  // rings complete before it was known that there are rows enough
};

}  // namespace kestrin::coverage
