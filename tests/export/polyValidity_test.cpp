#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iomanip>

#include "export/polyBuilder.h"
#include "tests/export/literalPoly.h"
#include "tests/export/sharpTurns.h"
#include "tests/support/tempFolder.h"

namespace kestrin {
namespace {

TEST(Dump, All) {
  std::ofstream out("/tmp/poly/turns.txt");
  out << std::setprecision(17);
  const WorkingPlane plane({{}, 40.3, -98.0, 0});
  for (const test::SharpTurn& turn : test::SharpTurns()) {
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
      out << "Q " << literal.leftEdge[i].easting << " " << literal.leftEdge[i].northing << " "
          << literal.rightEdge[i].easting << " " << literal.rightEdge[i].northing << "\n";
    }
    PolygonBuilder builder([&](const Ring& ring) {
      if (!ring.IsPolygon()) return;
      out << "R";
      for (const UtmPoint& p : ring.Points()) out << " " << p.easting << " " << p.northing;
      out << "\nG";
      for (const UtmPoint& p : ring.Points()) {
        const GeoPoint g = plane.ToGeo(p);
        out << " " << g.longitude << " " << g.latitude;
      }
      out << "\n";
    });
    for (const SwathRow& row : turn.rows) builder.Add(row, false);
    builder.Finish();
  }
}

}  // namespace
}  // namespace kestrin
