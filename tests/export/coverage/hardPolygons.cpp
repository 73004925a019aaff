#include "tests/export/coverage/hardPolygons.h"

#include <cmath>
#include <numbers>

namespace kestrin::test {
namespace {

using sample::Randomness;
using Rows = std::vector<LiteralRow>;

constexpr double kPi = std::numbers::pi;

double Between(Randomness& chance, double low, double high) {
  return low + (high - low) * chance.Uniform();
}

int Count(Randomness& chance, int low, int high) {
  return low + static_cast<int>(chance.Next() % static_cast<std::uint64_t>(high - low + 1));
}

double Side(Randomness& chance) { return chance.Chance(0.5) ? 1 : -1; }

/// A vehicle with an implement as wide as machines are, anywhere, looking anywhere.
struct Way {
  explicit Way(Randomness& from)
      : chance(from),
        at{Between(from, 4e5, 6e5), Between(from, 3e6, 6e6)},
        yaw(Between(from, -kPi, kPi)),
        width(Between(from, 2, 16)) {}

  void Row() { rows.push_back({coverage::SwathRow::Of(at, yaw, width), false}); }
  void Move(double ahead, double right = 0) {
    at.easting += ahead * std::sin(yaw) + right * std::cos(yaw);
    at.northing += ahead * std::cos(yaw) - right * std::sin(yaw);
  }
  /// Rows with a step before and a turn after each.
  void Drive(int count, double step, double turn = 0) {
    for (int i = 0; i < count; ++i) {
      Move(step);
      Row();
      yaw += turn;
    }
  }
  /// A row somewhere near, looking somewhere near; the way itself goes on undisturbed.
  void JitteredRow(double metres, double radians) {
    const geo::UtmPoint where = at;
    const double looking = yaw;
    at = {at.easting + metres * chance.Noise(), at.northing + metres * chance.Noise()};
    yaw += radians * chance.Noise();
    Row();
    at = where;
    yaw = looking;
  }

  Randomness& chance;
  geo::UtmPoint at;
  double yaw;
  double width;
  Rows rows;
};

/// Turns on a point of the boom: so much of half the width to the right of the middle.
Rows Pivot(Randomness& chance, double share) {
  Way way(chance);
  const double arm = share * way.width / 2;
  way.Drive(Count(chance, 1, 8), Between(chance, 0.1, 2));
  const double turn = Side(chance) * Between(chance, 0.02, 0.5);
  for (int i = Count(chance, 3, 20); i > 0; --i) {
    way.Move(0, arm);
    way.yaw += turn;
    way.Move(0, -arm);
    way.Row();
  }
  way.Drive(Count(chance, 1, 20), Side(chance) * Between(chance, 0.1, 2));
  return way.rows;
}

/// The exact rows again, the last first.
void Retrace(Rows& rows, std::size_t count) {
  const std::size_t last = rows.size() - 1;
  for (std::size_t back = 1; back <= count && back <= last; ++back) {
    rows.push_back(rows[last - back]);
  }
}

Rows Walk(Randomness& chance) {
  Way way(chance);
  double step = Between(chance, 0.1, 3);
  const double bend = Between(chance, 0, 0.6);
  for (int i = Count(chance, 5, 60); i > 0; --i) {
    if (chance.Chance(0.15)) step = -step;
    way.yaw += bend * chance.Noise();
    way.Move(step * Between(chance, 0.2, 1));
    way.Row();
  }
  return way.rows;
}

Rows Standing(Randomness& chance) {
  Way way(chance);
  const double jitter = Between(chance, 0, 0.02);
  const double wavering = Between(chance, 0, 0.01);
  const double step = Between(chance, 0.3, 2);
  for (const bool stands : {false, true, false}) {
    for (int i = Count(chance, stands ? 3 : 0, stands ? 30 : 10); i > 0; --i) {
      if (!stands) way.Move(step);
      way.JitteredRow(jitter, wavering);
    }
  }
  return way.rows;
}

/// Booms so wide that their ends run backwards with every unrest of the heading.
Rows Wavering(Randomness& chance) {
  Way way(chance);
  way.width = Between(chance, 12, 36);
  const double step = Between(chance, 0.1, 1);
  const double wavering = Between(chance, 0.005, 0.1);
  for (int i = Count(chance, 5, 60); i > 0; --i) {
    way.Move(step);
    way.JitteredRow(0.01, wavering);
  }
  return way.rows;
}

Rows PivotOnLeftEnd(Randomness& chance) { return Pivot(chance, -1); }
Rows PivotOnRightEnd(Randomness& chance) { return Pivot(chance, 1); }
Rows PivotOnMiddle(Randomness& chance) { return Pivot(chance, 0); }

/// Rows that stay, rows at places from before, and rows of which one end stays.
Rows Repeated(Randomness& chance) {
  Way way(chance);
  way.Row();
  for (int i = Count(chance, 4, 50); i > 0; --i) {
    const LiteralRow& last = way.rows.back();
    const double what = chance.Uniform();
    if (what < 0.2) {
      way.rows.push_back(last);
    } else if (what < 0.35) {
      way.rows.push_back(way.rows[chance.Next() % way.rows.size()]);
    } else {
      way.Move(Between(chance, -0.5, 2));
      way.yaw += 0.2 * chance.Noise();
      LiteralRow next{coverage::SwathRow::Of(way.at, way.yaw, way.width), false};
      if (what < 0.5) next.row.left = last.row.left;
      if (what > 0.9) next.row.right = last.row.right;
      way.rows.push_back(next);
    }
  }
  return way.rows;
}

/// Forth and back and forth over the very same rows.
Rows Retraced(Randomness& chance) {
  Way way(chance);
  if (chance.Chance(0.5)) way.yaw = kPi / 2 * Count(chance, 0, 3);
  const double turn = chance.Chance(0.5) ? 0 : Between(chance, -0.1, 0.1);
  way.Drive(Count(chance, 3, 15), Between(chance, 0.1, 3), turn);
  const auto count = way.rows.size() - 1;
  for (int i = Count(chance, 1, 3); i > 0; --i) Retrace(way.rows, count);
  return way.rows;
}

/// Forward, and backward beside or across it.
Rows Reversed(Randomness& chance) {
  Way way(chance);
  const int count = Count(chance, 4, 25);
  const double step = Between(chance, 0.2, 2);
  const double drift = Between(chance, -0.1, 0.1);
  for (int i = 0; i < 2 * count; ++i) {
    way.Move(i < count ? step : -step, i < count ? 0 : drift);
    if (i >= count) way.yaw += 0.1 * drift;
    way.JitteredRow(0.01, 0.002);
  }
  return way.rows;
}

/// Passes beside each other, nearer than the implement is wide, joined by turns: edges
/// cross edges and the middle crosses nothing.
Rows Overlapping(Randomness& chance) {
  Way way(chance);
  const double radius = way.width * Between(chance, 0.15, 0.6);
  const int around = Count(chance, 4, 10);
  double side = Side(chance);
  for (int pass = Count(chance, 2, 3); pass > 0; --pass) {
    way.Drive(Count(chance, 2, 8), way.width * Between(chance, 0.1, 0.6));
    way.Drive(around, kPi * radius / around, side * kPi / around);
    if (chance.Chance(0.8)) side = -side;
  }
  return way.rows;
}

/// Around a hole, and on over its own edge.
Rows Around(Randomness& chance) {
  Way way(chance);
  const int count = Count(chance, 20, 60);
  const double around = 2 * kPi * Between(chance, 0.8, 1.8);
  const double side = Side(chance);
  const double growth = way.width * Between(chance, 0.1, 1.2) / (2 * kPi);
  const double from = way.width * Between(chance, 0.3, 2);
  const geo::UtmPoint centre = way.at;
  for (int i = 0; i < count; ++i) {
    const double angle = around * i / count;
    const double radius = from + growth * angle;
    way.yaw = side * angle + std::atan2(side * radius, growth);
    way.at = {centre.easting + radius * std::sin(side * angle),
              centre.northing + radius * std::cos(side * angle)};
    way.Row();
  }
  return way.rows;
}

/// Along one line forth and back, or along the boom itself.
Rows Collinear(Randomness& chance) {
  Way way(chance);
  if (chance.Chance(0.7)) way.yaw = kPi / 2 * Count(chance, 0, 3);
  const double ahead = chance.Chance(0.8) ? 1 : 0;
  for (int i = Count(chance, 5, 40); i > 0; --i) {
    const double step = Between(chance, -1, 2);
    way.Move(ahead * step, (1 - ahead) * step);
    way.Row();
  }
  if (ahead == 0) way.Drive(2, 1);
  return way.rows;
}

Rows Narrow(Randomness& chance) {
  Way way(chance);
  way.width = Between(chance, 0.001, 0.01);
  const double step = Between(chance, 0.01, 1);
  for (int i = Count(chance, 5, 60); i > 0; --i) {
    way.yaw += 0.1 * chance.Noise();
    way.Move(step * (chance.Chance(0.1) ? -1 : 1));
    way.JitteredRow(0.002, 0.01);
  }
  return way.rows;
}

Rows Wide(Randomness& chance) {
  Way way(chance);
  way.width = Between(chance, 30, 60);
  const double bend = Between(chance, 0, 0.2);
  for (int i = Count(chance, 5, 60); i > 0; --i) {
    way.yaw += bend * chance.Noise();
    way.Move(0.1 * (chance.Chance(0.1) ? -1 : 1));
    way.Row();
  }
  return way.rows;
}

/// A hundred metres away for some rows, and back.
Rows Jumping(Randomness& chance) {
  Way way(chance);
  const double step = Between(chance, 0.3, 3);
  for (int i = Count(chance, 2, 4); i > 0; --i) {
    way.Drive(Count(chance, 2, 10), step, 0.02 * chance.Noise());
    const double ahead = Between(chance, -100, 100);
    const double right = Between(chance, -100, 100);
    way.Move(ahead, right);
    way.Drive(Count(chance, 1, 3), step);
    way.Move(-ahead, -right);
  }
  way.Drive(3, step);
  return way.rows;
}

/// Widths that change on the way, also from none.
Rows Widening(Randomness& chance) {
  Way way(chance);
  if (chance.Chance(0.3)) way.width = 0;
  for (int i = Count(chance, 5, 60); i > 0; --i) {
    if (chance.Chance(0.1)) way.width += Between(chance, 0.5, 6);
    way.yaw += 0.05 * chance.Noise();
    way.Move(chance.Chance(0.1) ? -0.7 : 1);
    way.JitteredRow(0.01, 0.01);
  }
  return way.rows;
}

/// All on a grid of half metres, looking along it, so that ends lie on edges exactly.
Rows OnGrid(Randomness& chance) {
  Way way(chance);
  way.at = {500000, 4500000};
  const double half = 0.5 * Count(chance, 1, 6);
  for (int i = Count(chance, 5, 60); i > 0; --i) {
    const bool across = chance.Chance(0.15);
    way.at.easting += 0.5 * Count(chance, across ? -2 : 0, across ? 2 : 0);
    way.at.northing += 0.5 * Count(chance, -1, 3);
    const double right = chance.Chance(0.15) ? -half : half;
    const geo::UtmPoint left{way.at.easting - right, way.at.northing};
    way.rows.push_back({{way.at, left, {way.at.easting + right, way.at.northing}}, false});
  }
  return way.rows;
}

/// Anywhere, looking anywhere.
Rows Chaos(Randomness& chance) {
  Way way(chance);
  for (int i = Count(chance, 5, 15); i > 0; --i) {
    way.JitteredRow(way.width / 2, 1);
  }
  return way.rows;
}

}  // namespace

const std::vector<HardKind>& HardKinds() {
  static const std::vector<HardKind> kinds{
      {"Walk", Walk},
      {"Standing", Standing},
      {"Wavering", Wavering},
      {"PivotOnLeftEnd", PivotOnLeftEnd},
      {"PivotOnRightEnd", PivotOnRightEnd},
      {"PivotOnMiddle", PivotOnMiddle},
      {"Repeated", Repeated},
      {"Retraced", Retraced},
      {"Reversed", Reversed},
      {"Overlapping", Overlapping},
      {"Around", Around},
      {"Collinear", Collinear},
      {"Narrow", Narrow},
      {"Wide", Wide},
      {"Jumping", Jumping},
      {"Widening", Widening},
      {"OnGrid", OnGrid},
      {"Chaos", Chaos},
  };
  return kinds;
}

std::vector<LiteralRow> HardPolygon(const HardKind& kind, std::uint64_t seed) {
  sample::Randomness chance(seed);
  return kind.rows(chance);
}

}  // namespace kestrin::test
