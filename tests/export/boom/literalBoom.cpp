#include "tests/export/boom/literalBoom.h"

#include <bit>
#include <cmath>

#include "export/exportRun.h"
#include "geo/modProj4.h"
#include "jobstore/periodEpochs.h"
#include "shapefile/numberText.h"

namespace kestrin::test {
namespace {

/// Position of the row's entry: of its time, or new in its place.
std::size_t Merge(std::vector<LiteralEntry>& entries, jobstore::GpsKey time) {
  LiteralEntry blank = entries[0];
  blank.time = time;
  for (std::size_t i = 1; i < entries.size(); ++i) {
    const jobstore::GpsKey at = entries[i].time;
    if (at.gpsWeek == time.gpsWeek && at.gpsMsec == time.gpsMsec) return i;
    if ((at.gpsWeek == time.gpsWeek && at.gpsMsec > time.gpsMsec) || at.gpsWeek > time.gpsWeek) {
      entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(i), blank);
      return i;
    }
  }
  entries.push_back(blank);
  return entries.size() - 1;
}

std::string WithoutOuterBlanks(std::string text) {
  while (!text.empty() && text.front() == ' ') text.erase(0, 1);
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

void GrowBox(geo::Box& box, geo::GeoPoint point) {
  if (point.longitude < box.xMin) {
    box.xMin = point.longitude;
  } else if (point.longitude > box.xMax) {
    box.xMax = point.longitude;
  }
  if (point.latitude < box.yMin) {
    box.yMin = point.latitude;
  } else if (point.latitude > box.yMax) {
    box.yMax = point.latitude;
  }
}

template <class Q, class... Numbers>
std::vector<typename Q::Row> AllRows(jobstore::Job& job, const Numbers&... numbers) {
  std::vector<typename Q::Row> rows;
  jobstore::Query<Q> query(job, numbers...);
  for (typename Q::Row row; query.Next(row); row = {}) rows.push_back(row);
  return rows;
}

/// Reference location, actual rates and records while the epochs are walked.
class Walk {
 public:
  explicit Walk(jobstore::Job& job)
      : references_(AllRows<jobstore::References>(job)),
        actual_(AllRows<jobstore::ActualRates>(job)) {
    if (references_.empty()) throw exports::SubscriptError();
    zone_ = geo::UtmZoneOf(references_[0].latitude, references_[0].longitude);
    Project();
    for (jobstore::RatesRow& row : actual_) {
      for (double& rate : row.rates) rate = shapefile::RoundTo(rate, 2);
    }
  }

  void Epoch(const jobstore::PeriodEpochs::Row& epoch, const jobstore::ImplementRow* setup) {
    AdvanceReference(epoch.time);
    const double e = easting_ + epoch.east;
    const double n = northing_ + epoch.north;
    while (actualAt_ + 1 < actual_.size() && actual_[actualAt_ + 1].time <= epoch.time) {
      ++actualAt_;
    }
    records.Decide(actual_.empty() ? std::array<double, 3>{} : actual_[actualAt_].rates);
    if (setup == nullptr) return;
    for (const jobstore::Section& s : setup->sections) {
      if (!(s.width >= 0)) continue;
      const double h = s.width / 2;
      const double c = std::cos(epoch.yaw);
      const double d = std::sin(epoch.yaw);
      const geo::GeoPoint first = Geographic(e + c * h + s.xOffset, n - d * h + s.yOffset);
      const geo::GeoPoint second = Geographic(e - c * h + s.xOffset, n + d * h + s.yOffset);
      records.Place(first, second);
    }
  }

  LiteralRecords records;

 private:
  void AdvanceReference(jobstore::GpsKey time) {
    if (time.gpsWeek > references_[at_].time.gpsWeek) {
      while (at_ + 1 < references_.size() && references_[at_ + 1].time.gpsWeek <= time.gpsWeek) {
        ++at_;
        Project();
      }
    }
    if (time.gpsWeek == references_[at_].time.gpsWeek) {
      while (at_ + 1 < references_.size() && references_[at_ + 1].time.gpsWeek == time.gpsWeek &&
             references_[at_ + 1].time.gpsMsec <= time.gpsMsec) {
        ++at_;
        Project();
      }
    }
  }

  void Project() {
    northing_ = references_[at_].latitude;
    easting_ = references_[at_].longitude;
    geo::GeoToUtm(northing_, easting_, zone_);
  }

  geo::GeoPoint Geographic(double easting, double northing) const {
    geo::UtmToGeo(northing, easting, zone_);
    return {easting, northing};
  }

  std::vector<jobstore::ReferenceRow> references_;
  std::vector<jobstore::RatesRow> actual_;
  std::size_t at_ = 0;
  std::size_t actualAt_ = 0;
  std::int16_t zone_ = 0;
  double easting_ = 0;
  double northing_ = 0;
};

// ---------------------------------------------------------------- bytes

std::string Le(std::uint64_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}

std::string Be32(std::uint64_t value) {
  const std::string le = Le(value, 4);
  return {le.rbegin(), le.rend()};
}

std::string Le(double value) { return Le(std::bit_cast<std::uint64_t>(value), 8); }

std::string BoxBytes(const geo::Box& box) {
  return Le(box.xMin) + Le(box.yMin) + Le(box.xMax) + Le(box.yMax);
}

std::string Header(std::uint64_t words, const geo::Box& box) {
  return Be32(9994) + std::string(20, '\0') + Be32(words) + Le(1000, 4) + Le(3, 4) + BoxBytes(box) +
         std::string(32, '\0');
}

std::string FieldText(const std::string& text, std::size_t width) {
  if (text.size() >= width) return text.substr(0, width);
  return std::string(width - text.size(), ' ') + text;
}

std::string RateText(double rate) {
  return FieldText(std::string(shapefile::ShortestText(shapefile::RoundTo(rate, 2)).View()), 10);
}

std::string Descriptor(const std::string& name, char type, char width, char decimals) {
  return name + std::string(11 - name.size(), '\0') + type + std::string(4, '\0') + width +
         decimals + std::string(14, '\0');
}

std::string TableStart(shapefile::CalendarDate date, std::size_t records) {
  std::string bytes = Le(3, 1) + Le(static_cast<std::uint64_t>(date.year - 1900), 1) +
                      Le(static_cast<std::uint64_t>(date.month), 1) +
                      Le(static_cast<std::uint64_t>(date.day), 1) + Le(records, 4) + Le(385, 2) +
                      Le(109, 2) + std::string(20, '\0');
  bytes += Descriptor("ID", 'N', 8, 0) + Descriptor("IMPLEMENT", 'C', 10, 0);
  for (const std::string slot : {"1", "2", "3"}) {
    bytes += Descriptor("Product" + slot, 'C', 10, 0) + Descriptor("TargRate" + slot, 'N', 10, 2) +
             Descriptor("ActRate" + slot, 'N', 10, 2);
  }
  return bytes + '\x0D';
}

LiteralSet Files(const LiteralRecords& records, const std::vector<LiteralEntry>& entries,
                 shapefile::CalendarDate date) {
  const std::uint64_t r = records.Count();
  const std::uint64_t p = records.PointCount();
  LiteralSet set;
  set.shp = Header((100 + 8 * r + 44 * r + 4 * p / 2 + 16 * p) / 2, records.FileBox());
  set.shx = Header((100 + 8 * r) / 2, records.FileBox());
  set.dbf = TableStart(date, records.Count());
  for (std::size_t i = 1; i <= records.Count(); ++i) {
    const LiteralRecord& record = records.Record(i);
    const std::vector<geo::GeoPoint> points = records.PointsOf(i);
    const std::uint64_t n = points.size();
    const std::uint64_t words = (44 + 4 * (n / 2) + 16 * n) / 2;
    set.shx += Be32(set.shp.size() / 2) + Be32(words);
    set.shp += Be32(i) + Be32(words) + Le(3, 4) + BoxBytes(record.box) + Le(n / 2, 4) + Le(n, 4);
    for (std::uint64_t part = 0; part < n; part += 2) set.shp += Le(part, 4);
    for (const geo::GeoPoint& point : points) set.shp += Le(point.longitude) + Le(point.latitude);

    const LiteralEntry& entry = entries[record.entry];
    set.dbf += ' ' + FieldText(std::to_string(i - 1), 8) + FieldText(entry.implementName, 10);
    for (std::size_t slot = 0; slot < 3; ++slot) {
      set.dbf += FieldText(entry.products[slot], 10) + RateText(entry.desiredRates[slot]) +
                 RateText(record.rates[slot]);
    }
  }
  set.dbf += '\x1A';
  return set;
}

}  // namespace

std::vector<LiteralEntry> LiteralTimeline(const std::vector<jobstore::RatesRow>& desired,
                                          const std::vector<jobstore::ProductsRow>& products,
                                          const std::vector<jobstore::ImplementRow>& implements) {
  std::vector<LiteralEntry> entries(1);
  for (const jobstore::RatesRow& row : desired) entries.push_back({row.time, row.rates, {}, "", 0});
  for (const jobstore::ProductsRow& row : products) {
    const std::size_t at = Merge(entries, row.time);
    entries[at].products = row.names;
  }
  for (std::size_t i = 0; i < implements.size(); ++i) {
    const std::size_t at = Merge(entries, implements[i].time);
    entries[at].implementName = WithoutOuterBlanks(implements[i].name);
    entries[at].setup = i + 1;
  }
  for (std::size_t i = 2; i < entries.size(); ++i) {
    const LiteralEntry& before = entries[i - 1];
    LiteralEntry& entry = entries[i];
    if (entry.implementName.empty()) {
      entry.implementName = before.implementName;
      entry.setup = before.setup;
    }
    if (entry.products[0].empty() && entry.products[1].empty() && entry.products[2].empty()) {
      entry.products = before.products;
    }
    if (entry.desiredRates[0] == 0 && entry.desiredRates[1] == 0 && entry.desiredRates[2] == 0) {
      entry.desiredRates = before.desiredRates;
    }
  }
  return entries;
}

void LiteralRecords::StartPeriod(std::size_t entry) {
  entry_ = entry;
  periodStart_ = Count() + 1;
  flag_ = true;
}

void LiteralRecords::Decide(const std::array<double, 3>& rates) {
  if (!flag_) {
    for (std::size_t slot = 0; slot < 3; ++slot) {
      if (records_[current_].rates[slot] != rates[slot]) flag_ = true;
    }
  }
  if (flag_ && Count() - periodStart_ + 1 >= 2) {
    for (std::size_t i = periodStart_; i <= Count(); ++i) {
      const std::array<double, 3>& held = records_[i].rates;
      if (held[0] == rates[0] && held[1] == rates[1] && held[2] == rates[2]) {
        current_ = i;
        flag_ = false;
        break;
      }
    }
  }
  if (flag_) {
    records_.push_back({static_cast<std::int64_t>(PointCount()) + 1, entry_, rates});
    current_ = Count();
  }
}

geo::GeoPoint& LiteralRecords::Slot(std::int64_t k) {
  if (k < 0 || k >= static_cast<std::int64_t>(points_.size())) throw exports::SubscriptError();
  return points_[static_cast<std::size_t>(k)];
}

void LiteralRecords::Place(geo::GeoPoint first, geo::GeoPoint second) {
  points_.resize(points_.size() + 2);
  const auto u = static_cast<std::int64_t>(PointCount());
  if (current_ == Count()) {
    Slot(u - 1) = first;
    Slot(u) = second;
  } else {
    const std::int64_t f = records_[current_].firstPoint;
    const std::int64_t g = records_[current_ + 1].firstPoint;
    for (std::size_t i = current_ + 1; i <= Count(); ++i) records_[i].firstPoint += 2;
    for (std::int64_t k = u; k >= f; --k) Slot(k) = Slot(k - 2);
    Slot(g) = first;
    Slot(g + 1) = second;
  }
  Grow(first);
  Grow(second);
}

void LiteralRecords::Grow(geo::GeoPoint point) {
  if (flag_) {
    records_[current_].box = {point.longitude, point.latitude, point.longitude, point.latitude};
    flag_ = false;
  } else {
    GrowBox(records_[current_].box, point);
  }
  if (!fileHasPoint_) {
    fileBox_ = {point.longitude, point.latitude, point.longitude, point.latitude};
    fileHasPoint_ = true;
  } else {
    GrowBox(fileBox_, point);
  }
}

std::vector<geo::GeoPoint> LiteralRecords::PointsOf(std::size_t record) const {
  const auto begin = records_[record].firstPoint;
  const auto end = record < Count() ? records_[record + 1].firstPoint
                                    : static_cast<std::int64_t>(points_.size());
  return {points_.begin() + begin, points_.begin() + end};
}

LiteralSet LiteralBoom(const std::string& jobPath, shapefile::CalendarDate date) {
  jobstore::Job job(jobPath);
  const std::vector<jobstore::ImplementRow> implements = AllRows<jobstore::Implements>(job);
  const std::vector<LiteralEntry> entries = LiteralTimeline(
      AllRows<jobstore::DesiredRates>(job), AllRows<jobstore::Products>(job), implements);
  Walk walk(job);
  std::int64_t epochs = 0;
  for (std::size_t k = 1; k < entries.size(); ++k) {
    walk.records.StartPeriod(k);
    const std::vector<jobstore::PeriodEpochs::Row> rows =
        k + 1 < entries.size()
            ? AllRows<jobstore::PeriodEpochs>(job, entries[k].time, entries[k + 1].time)
            : AllRows<jobstore::PeriodEpochs>(job, entries[k].time);
    for (const jobstore::PeriodEpochs::Row& row : rows) {
      ++epochs;
      walk.Epoch(row, entries[k].setup == 0 ? nullptr : &implements[entries[k].setup - 1]);
    }
  }
  LiteralSet set = Files(walk.records, entries, date);
  set.epochs = epochs;
  return set;
}

}  // namespace kestrin::test
