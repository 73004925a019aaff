#pragma once

#include <string>
#include <vector>

#include "geo/modProj4.h"
#include "geo/utmProjection.h"
#include "jobstore/queries.h"
#include "preview/renderers.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/recordingHost.h"
#include "tests/support/recordingPicture.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {

/// Where the jobs of the preview tests lie: degrees.
inline constexpr double kLatitude = 49.8;
inline constexpr double kLongitude = -97.1;

/// The working plane's origin for a reference location there, to the last digit as
/// a job gives it: stored in radians.
inline geo::UtmPoint Origin(double latitude = kLatitude, double longitude = kLongitude) {
  const geo::UtmProjection projection(geo::UtmZoneOf(kLatitude, kLongitude));
  return projection.ToUtm({AsStored(longitude), AsStored(latitude)});
}

/// An extent of 100 by 100 m east and north of the origin, at a metre per unit of a
/// picture of 100 by 100: an epoch at east e, north n is drawn at e, 100 - n.
inline preview::PreviewState HundredMetres(const std::string& jobPath) {
  const geo::UtmPoint origin = Origin();
  const geo::UtmPoint corner{origin.easting + 100, origin.northing + 100};
  return {jobPath, {geo::Box::Of(origin, corner), 1}};
}

/// A job with one reference location, to be filled by a test.
struct PreviewJob {
  TempFolder folder;
  JobBuilder builder{folder / "job.sqlite"};
  RecordingHost host;
  RecordingPicture picture;

  PreviewJob() { builder.Reference({1, 0}, kLatitude, kLongitude); }

  /// An epoch on the hundred metres, `second` seconds into week 1.
  PreviewJob& At(int second, double east, double north, double yaw = 0, bool begins = false) {
    builder.Epoch({1, second * 1000}, east, north, yaw, begins);
    return *this;
  }
  PreviewJob& Implement(int second, const std::vector<jobstore::Section>& sections) {
    builder.Implement({1, second * 1000}, "Boom", sections);
    return *this;
  }

  using Renderer = decltype(&preview::DrawWirePreview);

  /// Draws the state's job with lines in colour 1, filled in 2, and returns the calls.
  std::vector<std::string> Draw(Renderer renderer, const preview::PreviewState& state);

  /// The calls between the clearing and the refresh, which are checked to be there, on the
  /// hundred metres.
  std::vector<std::string> Drawn(Renderer renderer);
};

}  // namespace kestrin::test
