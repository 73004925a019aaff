#include "tools/sample/field.h"

#include <algorithm>
#include <cmath>

namespace kestrin::sample {
namespace {

/// How far right of the directed side a->b the place lies; inside is right.
double RightOf(Place a, Place b, Place place) {
  const double length = std::hypot(b.east - a.east, b.north - a.north);
  return ((place.east - a.east) * (b.north - a.north) -
          (place.north - a.north) * (b.east - a.east)) /
         length;
}

struct Side {
  Place a;
  Place b;
};

Side MovedRight(Place a, Place b, double metres) {
  const double length = std::hypot(b.east - a.east, b.north - a.north);
  const double east = (b.north - a.north) / length * metres;
  const double north = -(b.east - a.east) / length * metres;
  return {{a.east + east, a.north + north}, {b.east + east, b.north + north}};
}

Place Crossing(const Side& p, const Side& q) {
  const double pe = p.b.east - p.a.east;
  const double pn = p.b.north - p.a.north;
  const double qe = q.b.east - q.a.east;
  const double qn = q.b.north - q.a.north;
  const double t =
      ((q.a.east - p.a.east) * qn - (q.a.north - p.a.north) * qe) / (pe * qn - pn * qe);
  return {p.a.east + pe * t, p.a.north + pn * t};
}

}  // namespace

Outline MakeField(double area) {
  const double side = std::clamp(std::sqrt(area), 20.0, 2000.0);
  const double width = side / 1.15;
  const double length = side * 1.15;
  return {{0, 0}, {width * 0.06, length}, {width, length * 0.9}, {width * 1.04, length * 0.05}};
}

Outline Inset(const Outline& outline, double metres) {
  const std::size_t count = outline.size();
  Outline inset;
  for (std::size_t i = 0; i < count; ++i) {
    const Place before = outline[(i + count - 1) % count];
    const Place here = outline[i];
    const Place after = outline[(i + 1) % count];
    inset.push_back(Crossing(MovedRight(before, here, metres), MovedRight(here, after, metres)));
  }
  // Beyond the middle the sides have changed places, and the corners lie outside.
  for (const Place corner : inset) {
    for (std::size_t i = 0; i < count; ++i) {
      if (RightOf(outline[i], outline[(i + 1) % count], corner) < metres - 1e-6) return {};
    }
  }
  return inset;
}

bool Contains(const Outline& outline, Place place) {
  for (std::size_t i = 0; i < outline.size(); ++i) {
    if (RightOf(outline[i], outline[(i + 1) % outline.size()], place) < 0) return false;
  }
  return !outline.empty();
}

std::optional<Span> SpanAt(const Outline& outline, double east) {
  std::optional<Span> span;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Place a = outline[i];
    const Place b = outline[(i + 1) % outline.size()];
    if ((a.east < east) == (b.east < east)) continue;
    const double north = a.north + (b.north - a.north) * (east - a.east) / (b.east - a.east);
    if (!span) span = Span{north, north};
    span->south = std::min(span->south, north);
    span->north = std::max(span->north, north);
  }
  return span;
}

}  // namespace kestrin::sample
