#include "tests/export/coverage/setJudge.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "base/utf8Path.h"
#include "geo/modProj4.h"
#include "tests/support/database.h"
#include "tests/support/shapeReader.h"

namespace kestrin::test {
namespace {

constexpr double kDegrees = 57.2957795130823;
constexpr int kBegins = 16384;

using Time = std::pair<int, int>;

Time TimeOf(sqlite3_stmt* row) { return {sqlite3_column_int(row, 0), sqlite3_column_int(row, 1)}; }

/// What is in force from a time on.
template <class Value>
using Changes = std::vector<std::pair<Time, Value>>;

template <class Value>
Value At(const Changes<Value>& changes, Time time, std::size_t& last) {
  while (last + 1 < changes.size() && changes[last + 1].first <= time) ++last;
  return changes[last].second;
}

/// A job as the coverage polygons are stated to take it.
class LiteralJob {
 public:
  explicit LiteralJob(const std::string& path) : job_(path, SQLITE_OPEN_READONLY) {
    ReadWidths();
    ReadOrigins();
    if (!origins_.empty()) ReadRows();
  }

  const std::vector<LiteralRow>& Rows() const { return rows_; }
  const geo::UtmProjection& Projection() const { return *projection_; }

 private:
  void ReadWidths() {
    double width = 0;
    job_.Each("SELECT * FROM ImplChangeTable ORDER BY gpsWeek, gpsMsec", [&](sqlite3_stmt* row) {
      for (int column = 4; column <= 64; column += 4) {
        const double section = sqlite3_column_double(row, column);
        if (section > 0) width += section;
      }
      widths_.emplace_back(TimeOf(row), width);
    });
    if (widths_.empty()) widths_.emplace_back(Time{}, 0);
  }

  void ReadOrigins() {
    job_.Each(
        "SELECT gpsWeek, gpsMsec, latitude, longitude FROM ReferenceLocationChangeTable"
        " ORDER BY gpsWeek, gpsMsec",
        [&](sqlite3_stmt* row) {
          const geo::GeoPoint place{sqlite3_column_double(row, 3) * kDegrees,
                                    sqlite3_column_double(row, 2) * kDegrees};
          if (!projection_) projection_.emplace(geo::UtmZoneOf(place.latitude, place.longitude));
          origins_.emplace_back(TimeOf(row), projection_->ToUtm(place));
        });
    if (!projection_) projection_.emplace(std::int16_t{0});
  }

  void ReadRows() {
    std::size_t origin = 0;
    std::size_t width = 0;
    job_.Each(
        "SELECT gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type FROM GpsDataTable"
        " WHERE type & 8192 ORDER BY gpsWeek, gpsMsec",
        [&](sqlite3_stmt* row) {
          const geo::UtmPoint from = At(origins_, TimeOf(row), origin);
          const geo::UtmPoint centre{from.easting + sqlite3_column_double(row, 2),
                                     from.northing + sqlite3_column_double(row, 3)};
          rows_.push_back({coverage::SwathRow::Of(centre, sqlite3_column_double(row, 4),
                                                  At(widths_, TimeOf(row), width)),
                           (sqlite3_column_int(row, 5) & kBegins) != 0});
        });
  }

  Database job_;
  std::optional<geo::UtmProjection> projection_;
  Changes<double> widths_;
  Changes<geo::UtmPoint> origins_;
  std::vector<LiteralRow> rows_;
};

}  // namespace

Verdict JudgeSet(const std::string& name, const std::string& jobPath, const std::string& basePath,
                 Asked asked) {
  std::vector<WrittenRing> rings;
  if (std::filesystem::exists(base::PathOf(basePath + ".shp"))) {
    const ReadSet set = ReadShapeSet(basePath);
    for (std::size_t i = 0; i < set.records.size(); ++i) {
      const ReadRecord& record = set.records[i];
      if (record.parts.size() != 1) {
        Verdict verdict;
        verdict.faults.push_back(name + ": record " + std::to_string(i) + " has parts");
        return verdict;
      }
      rings.push_back({record.points, std::stod(set.rows[i][1])});
    }
  }
  const LiteralJob job(jobPath);
  return RingJudge(job.Projection(), asked).Judge(name, job.Rows(), rings);
}

}  // namespace kestrin::test
