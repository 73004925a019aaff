#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <tuple>

#include "export/coverage/polygonBuilder.h"
#include "tests/export/coverage/literalCoverage.h"
#include "tests/export/coverage/sharpTurns.h"
#include "tests/support/tempFolder.h"

namespace kestrin::coverage {
namespace {

/// A job as ring_validity reads it: its rows polygon by polygon, and its rings.
void Describe(const test::SharpTurn& turn, const geo::WorkingPlane& plane, std::ostream& out) {
  out << "J " << turn.name << "\n";
  std::vector<test::LiteralRow> rows;
  for (const SwathRow& row : turn.rows) rows.push_back({row, false});
  const test::LiteralPolygons literal(rows);
  std::size_t next = 1;
  for (std::size_t i = 1; i < literal.leftEdge.size(); ++i) {
    if (next < literal.starts.size() && literal.starts[next] == static_cast<int>(i)) {
      out << "S\n";
      ++next;
    }
    const geo::UtmPoint left = literal.leftEdge[i];
    const geo::UtmPoint right = literal.rightEdge[i];
    out << "Q " << left.easting << " " << left.northing << " " << right.easting << " "
        << right.northing << "\n";
  }
  PolygonBuilder builder([&](const Ring& ring) {
    if (!ring.IsPolygon()) return;
    out << "R";
    for (const geo::UtmPoint& point : ring.Points())
      out << " " << point.easting << " " << point.northing;
    out << "\nG";
    for (const geo::UtmPoint& point : ring.Points()) {
      const geo::GeoPoint position = plane.ToGeo(point);
      out << " " << position.longitude << " " << position.latitude;
    }
    out << "\n";
  });
  for (const SwathRow& row : turn.rows) builder.Add(row, false);
  builder.Finish();
}

/// The implement's width, and the radius as a share of half of it.
class SharpTurns : public testing::TestWithParam<std::tuple<double, double>> {};

TEST_P(SharpTurns, RingsAreValidClockwiseAndAsLargeAsTheGroundCovered) {
  if (std::system("/usr/bin/python3 -c 'import shapely' 2>/dev/null") != 0) {
    GTEST_SKIP() << "no python3 with shapely";
  }
  const test::TempFolder folder;
  const std::string jobs = folder / "turns.txt";
  {
    std::ofstream out(jobs);
    out << std::setprecision(17);
    const geo::WorkingPlane plane(jobstore::ReferenceRow{{}, 40.3, -98.0});
    const auto [width, share] = GetParam();
    for (const test::SharpTurn& turn : test::SharpTurns(width, share)) Describe(turn, plane, out);
  }
  const std::string judge = "/usr/bin/python3 '" KESTRIN_RING_VALIDITY "' ";
  EXPECT_EQ(std::system((judge + jobs + " 0.005").c_str()), 0);
}

INSTANTIATE_TEST_SUITE_P(WidthsAndShares, SharpTurns,
                         testing::Combine(testing::Values(3.0, 12.0, 48.0),
                                          testing::Values(0.0, 0.1, 0.25, 0.5, 0.75, 1.0, 1.5)));

}  // namespace
}  // namespace kestrin::coverage
