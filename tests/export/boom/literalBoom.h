#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "geo/box.h"
#include "geo/points.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "shapefile/attributeTable.h"

/// The boom export once more, step by step as its rules are told and with no regard
/// to cost: every list is scanned from its front, every query is run, every slot is
/// moved. What the real one is compared with.

namespace kestrin::test {

struct LiteralEntry {
  jobstore::GpsKey time;
  std::array<double, 3> desiredRates{};
  std::array<std::string, 3> products;
  std::string implementName;
  std::size_t setup = 0;  ///< position among the implement rows, the first is 1
};

/// The filled timeline of a job's rows. Entry 0 is blank and none of its entries.
std::vector<LiteralEntry> LiteralTimeline(const std::vector<jobstore::RatesRow>& desired,
                                          const std::vector<jobstore::ProductsRow>& products,
                                          const std::vector<jobstore::ImplementRow>& implements);

struct LiteralRecord {
  std::int64_t firstPoint = 0;
  std::size_t entry = 0;
  std::array<double, 3> rates{};
  geo::Box box{0, 0, 0, 0};
};

/// Records and the one list of points; both count from 1.
class LiteralRecords {
 public:
  void StartPeriod(std::size_t entry);
  void Decide(const std::array<double, 3>& rates);
  /// Throws SubscriptError for a slot outside the list.
  void Place(geo::GeoPoint first, geo::GeoPoint second);

  std::size_t Count() const { return records_.size() - 1; }
  const LiteralRecord& Record(std::size_t i) const { return records_[i]; }
  const geo::Box& FileBox() const { return fileBox_; }
  std::size_t PointCount() const { return points_.size() - 1; }
  std::vector<geo::GeoPoint> PointsOf(std::size_t record) const;

 private:
  geo::GeoPoint& Slot(std::int64_t k);
  void Grow(geo::GeoPoint point);

  std::vector<LiteralRecord> records_{1};
  std::vector<geo::GeoPoint> points_{1};
  geo::Box fileBox_{0, 0, 0, 0};
  bool fileHasPoint_ = false;
  std::size_t entry_ = 0;
  std::size_t periodStart_ = 1;
  std::size_t current_ = 0;
  bool flag_ = true;
};

/// A set's three files.
struct LiteralSet {
  std::string shp;
  std::string shx;
  std::string dbf;
  std::int64_t epochs = 0;
};

/// The boom set of a job. Throws SubscriptError as the export does.
LiteralSet LiteralBoom(const std::string& jobPath, shapefile::CalendarDate date);

}  // namespace kestrin::test
