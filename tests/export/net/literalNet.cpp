#include "tests/export/net/literalNet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "geo/localOffsets.h"
#include "geo/utmProjection.h"
#include "jobstore/epochs.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "tests/support/shapeReader.h"

namespace kestrin::test {
namespace {

using ground::Geos;
using ground::Line;

struct LiteralRow {
  jobstore::GpsKey time;
  geo::UtmPoint at;
  double yaw = 0;
  std::int32_t on = 0;
  bool begins = false;
  std::vector<jobstore::Section> sections;  // x ahead, y to the right
};

geo::UtmPoint Aside(const LiteralRow& row, double ahead, double right) {
  return {row.at.easting + std::sin(row.yaw) * ahead + std::cos(row.yaw) * right,
          row.at.northing + std::cos(row.yaw) * ahead - std::sin(row.yaw) * right};
}

/// Turns what is asked for into one section in the middle.
void TakeWhole(LiteralRow& row) {
  double width = 0;
  for (const jobstore::Section& section : row.sections) width += std::max(section.width, 0.0);
  row.sections = {{width, 0, 0, 0}};
  row.on = 1;
}

std::vector<LiteralRow> RowsOf(const std::string& jobPath, bool allSections) {
  jobstore::Job job(jobPath);
  std::vector<jobstore::ImplementRow> implements;
  jobstore::Query<jobstore::Implements> implementRows(job);
  for (jobstore::ImplementRow row; implementRows.Next(row); row = {}) implements.push_back(row);
  geo::LocalOffsets<jobstore::References> offsets(job);
  std::vector<LiteralRow> rows;
  std::int32_t ever = 0;
  jobstore::Query<jobstore::BoomEpochs> epochs(job);
  for (jobstore::BoomEpochs::Row row; epochs.Next(row);) {
    offsets.AdvanceTo(row.time);
    LiteralRow& taken = rows.emplace_back();
    taken = {row.time,
             offsets.Plane().At(row.east, row.north),
             row.yaw,
             row.boomStatus,
             row.BeginsStretch(),
             {}};
    std::size_t inForce = 0;
    for (std::size_t i = 1; i < implements.size(); ++i) {
      if (implements[i].time <= row.time) inForce = i;
    }
    if (!implements.empty()) {
      const auto& sections = implements[inForce].sections;
      taken.sections.assign(sections.begin(), sections.end());
    }
    ever |= row.boomStatus;
  }
  if (ever == 0 || allSections) {
    for (LiteralRow& row : rows) TakeWhole(row);
  }
  return rows;
}

double Cross(geo::UtmPoint o, geo::UtmPoint a, geo::UtmPoint b) {
  return (a.easting - o.easting) * (b.northing - o.northing) -
         (b.easting - o.easting) * (a.northing - o.northing);
}

/// Adds a triangle's ground and returns its area.
double AddTriangle(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, Geos& geos,
                   std::vector<Geos::Area>& areas) {
  const double area = std::fabs(Cross(a, b, c)) / 2;
  Geos::Area triangle = geos.Inside(Line{a, b, c, a});
  if (area > 0 && geos.IsValid(triangle)) areas.push_back(std::move(triangle));
  return area;
}

/// Where the ways a-b and c-d cross within both; false when they do not.
bool Meet(geo::UtmPoint a, geo::UtmPoint b, geo::UtmPoint c, geo::UtmPoint d, geo::UtmPoint& at) {
  const double before = Cross(c, d, a);
  const double after = Cross(c, d, b);
  if (before * after >= 0 || Cross(a, b, c) * Cross(a, b, d) >= 0) return false;
  const double part = before / (before - after);
  at = {a.easting + part * (b.easting - a.easting), a.northing + part * (b.northing - a.northing)};
  return true;
}

double AddQuad(geo::UtmPoint l0, geo::UtmPoint r0, geo::UtmPoint l1, geo::UtmPoint r1, Geos& geos,
               std::vector<Geos::Area>& areas) {
  geo::UtmPoint at;
  if (Meet(l0, r0, l1, r1, at)) {
    return AddTriangle(l0, l1, at, geos, areas) + AddTriangle(r0, r1, at, geos, areas);
  }
  if (Meet(l0, l1, r0, r1, at)) {
    return AddTriangle(l0, r0, at, geos, areas) + AddTriangle(l1, r1, at, geos, areas);
  }
  Geos::Area whole = geos.Inside(Line{l0, r0, r1, l1, l0});
  if (geos.IsValid(whole)) {
    const double area = geos.SquareMetres(whole);
    areas.push_back(std::move(whole));
    return area;
  }
  // The diagonal that lies within it.
  if (Cross(l0, r1, r0) * Cross(l0, r1, l1) <= 0) {
    return AddTriangle(l0, r1, r0, geos, areas) + AddTriangle(l0, r1, l1, geos, areas);
  }
  return AddTriangle(r0, l1, l0, geos, areas) + AddTriangle(r0, l1, r1, geos, areas);
}

}  // namespace

LiteralNet LiteralNetOf(const std::string& jobPath, bool allSections, Geos& geos) {
  const std::vector<LiteralRow> rows = RowsOf(jobPath, allSections);
  std::vector<Geos::Area> areas;
  LiteralNet net;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const LiteralRow& from = rows[i - 1];
    const LiteralRow& to = rows[i];
    if (to.begins) continue;
    for (std::size_t s = 0; s < from.sections.size() && s < to.sections.size(); ++s) {
      const auto& [fromWidth, fromX, fromY, fromZ] = from.sections[s];
      const auto& [toWidth, toX, toY, toZ] = to.sections[s];
      if ((from.on & to.on & (1 << s)) == 0 || !(fromWidth > 0) || !(toWidth > 0)) continue;
      net.sweptSquareMetres += AddQuad(
          Aside(from, fromX, fromY - fromWidth / 2), Aside(from, fromX, fromY + fromWidth / 2),
          Aside(to, toX, toY - toWidth / 2), Aside(to, toX, toY + toWidth / 2), geos, areas);
    }
  }
  net.ground = geos.Union(std::move(areas));
  return net;
}

Geos::Area GroundOfSet(const std::string& basePath, const std::string& jobPath, Geos& geos) {
  jobstore::Job job(jobPath);
  jobstore::ReferenceRow first;
  jobstore::ReadFirst<jobstore::References>(job, first);
  const geo::UtmProjection projection(geo::UtmZoneOf(first.latitude, first.longitude));
  std::vector<Geos::Area> areas;
  for (const ReadRecord& record : ReadShapeSet(basePath).records) {
    ground::Piece degrees;
    ground::Piece metres;
    for (std::size_t part = 0; part < record.parts.size(); ++part) {
      const auto begin = static_cast<std::size_t>(record.parts[part]);
      const auto end = part + 1 < record.parts.size()
                           ? static_cast<std::size_t>(record.parts[part + 1])
                           : record.points.size();
      Line inDegrees;
      Line inMetres;
      for (std::size_t i = begin; i < end; ++i) {
        inDegrees.push_back({record.points[i].longitude, record.points[i].latitude});
        inMetres.push_back(projection.ToUtm(record.points[i]));
      }
      EXPECT_EQ(inDegrees.front(), inDegrees.back());
      EXPECT_EQ(std::ranges::adjacent_find(inDegrees), inDegrees.end()) << "equal neighbours";
      double twice = 0;
      for (std::size_t i = 2; i < inMetres.size(); ++i) {
        twice += Cross(inMetres[0], inMetres[i - 1], inMetres[i]);
      }
      EXPECT_EQ(twice < 0, part == 0) << "outer lines run clockwise, holes the other way";
      (part == 0 ? degrees.shell : degrees.holes.emplace_back()) = std::move(inDegrees);
      (part == 0 ? metres.shell : metres.holes.emplace_back()) = std::move(inMetres);
    }
    EXPECT_TRUE(geos.IsValid(geos.Inside(degrees)));
    areas.push_back(geos.Mended(geos.Inside(metres)));
  }
  return geos.Union(std::move(areas));
}

double PartDiffering(const Geos::Area& one, const Geos::Area& other, Geos& geos) {
  const Geos::Area differing = geos.Own(GEOSSymDifference_r(geos.Handle(), one.get(), other.get()));
  return geos.SquareMetres(differing) / geos.SquareMetres(one);
}

}  // namespace kestrin::test
