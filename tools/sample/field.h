#pragma once

#include <optional>
#include <vector>

namespace kestrin::sample {

/// A place in metres east and north of the job's first reference location.
struct Place {
  double east = 0;
  double north = 0;
};

/// A convex outline, clockwise, not closed.
using Outline = std::vector<Place>;

/// A field of about `area` square metres: four sides, no two of them parallel or
/// perpendicular, so that a boom meets the headland at a slant.
Outline MakeField(double area);

/// The outline with every side moved inwards by `metres`; empty when nothing is left.
Outline Inset(const Outline& outline, double metres);

/// Whether the place lies in the outline, its border included.
bool Contains(const Outline& outline, Place place);

/// Where a line of constant easting runs through the outline.
struct Span {
  double south = 0;
  double north = 0;
};
std::optional<Span> SpanAt(const Outline& outline, double east);

}  // namespace kestrin::sample
