#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "bench/exportSides.h"
#include "export/ground/geos.h"
#include "geo/localOffsets.h"
#include "jobstore/epochs.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

/// The ground under a job's sections as GEOS joins it of quadrilaterals, one for each section
/// from each row to the next.

namespace kestrin::bench {

inline geo::UtmPoint Aside(geo::UtmPoint at, double yaw, double ahead, double right) {
  return {at.easting + std::sin(yaw) * ahead + std::cos(yaw) * right,
          at.northing + std::cos(yaw) * ahead - std::sin(yaw) * right};
}

struct Row {
  geo::UtmPoint at;
  double yaw = 0;
  std::int32_t on = 0;
  bool begins = false;
};

inline std::vector<Row> RowsOf(jobstore::Job& job) {
  geo::LocalOffsets<jobstore::References> offsets(job);
  jobstore::Query<jobstore::BoomEpochs> epochs(job);
  std::vector<Row> rows;
  for (jobstore::BoomEpochs::Row row; epochs.Next(row);) {
    offsets.AdvanceTo(row.time);
    rows.push_back(
        {offsets.Plane().At(row.east, row.north), row.yaw, row.boomStatus, row.BeginsStretch()});
  }
  return rows;
}

/// The quadrilaterals of a job with one implement.
inline std::vector<ground::Geos::Area> QuadsOf(const std::string& path, ground::Geos& geos) {
  jobstore::Job job(path);
  jobstore::ImplementRow implement;
  jobstore::ReadFirst<jobstore::Implements>(job, implement);
  const std::vector<Row> rows = RowsOf(job);
  std::vector<ground::Geos::Area> quads;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const Row& from = rows[i - 1];
    const Row& to = rows[i];
    if (to.begins) continue;
    for (std::size_t s = 0; s < implement.sections.size(); ++s) {
      const auto& [width, x, y, z] = implement.sections[s];
      if ((from.on & to.on & (1 << s)) == 0 || !(width > 0)) continue;
      const auto l0 = Aside(from.at, from.yaw, x, y - width / 2);
      const auto r0 = Aside(from.at, from.yaw, x, y + width / 2);
      const auto l1 = Aside(to.at, to.yaw, x, y - width / 2);
      const auto r1 = Aside(to.at, to.yaw, x, y + width / 2);
      ground::Geos::Area quad = geos.Inside(ground::Line{l0, l1, r1, r0, l0});
      // Bow ties are of machines that stand.
      quads.push_back(geos.IsValid(quad) ? std::move(quad) : geos.Mended(quad));
    }
  }
  return quads;
}

/// A set of the job "job.sqlite" in a folder beside GEOS joining all its quadrilaterals.
inline ground::Geos::Area BesideGeos(benchmark::State& state, const exports::ExportKind& kind,
                                     const ScratchFolder& folder, ground::Geos& geos) {
  const std::string job = folder / "job.sqlite";
  base::Crew crew(std::thread::hardware_concurrency());
  ground::Geos::Area all;
  SideBySide(state,
             {{"one", [&] { MakeSet(kind, folder / "job", job, nullptr); }},
              {"all", [&] { MakeSet(kind, folder / "job", job, &crew); }},
              {"peer", [&] { all = geos.Union(QuadsOf(job, geos)); }, true}},
             [&] { folder.KeepOnly(".sqlite"); });
  return all;
}

}  // namespace kestrin::bench
