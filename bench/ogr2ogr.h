#pragma once

#include <fstream>
#include <string>

#include "bench/exportSides.h"
#include "geo/workingPlane.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::bench {

/// Describes to ogr2ogr a job's GPS rows as points in metres about its first reference
/// location, as layer "points" with so many columns.
inline void DescribePoints(const std::string& vrt, const std::string& jobPath,
                           const std::string& columns) {
  jobstore::Job job(jobPath);
  jobstore::ReferenceRow reference;
  if (!jobstore::ReadFirst<jobstore::References>(job, reference)) {
    throw std::runtime_error("no reference");
  }
  const geo::UtmPoint at = geo::WorkingPlane(reference).At(0, 0);
  std::ofstream(vrt) << "<OGRVRTDataSource><OGRVRTLayer name='points'><SrcDataSource>" << jobPath
                     << "</SrcDataSource><SrcSQL>Select " << columns << ", "
                     << std::to_string(at.easting) << " + e_I_B__B2 As x, "
                     << std::to_string(at.northing)
                     << " + n_I_B__B2 As y From GpsDataTable Where type &amp; 8192 Order By "
                        "gpsWeek, gpsMsec</SrcSQL><GeometryType>wkbPoint</GeometryType><LayerSRS>"
                        "EPSG:"
                     << 26900 + geo::UtmZoneOf(reference.latitude, reference.longitude)
                     << "</LayerSRS><GeometryField encoding='PointFromColumns' x='x' y='y'/>"
                        "</OGRVRTLayer></OGRVRTDataSource>\n";
}

/// Makes a set of the points described, in degrees.
inline void RunOgr2ogr(const std::string& vrt, const std::string& shp,
                       const std::string& options = {}) {
  RunCommand("ogr2ogr -overwrite -t_srs EPSG:4269 " + options + " " + shp + " " + vrt +
             " >/dev/null 2>&1");
}

}  // namespace kestrin::bench
