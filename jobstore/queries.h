#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/angles.h"
#include "jobstore/epochs.h"
#include "jobstore/fixedText.h"
#include "jobstore/gpsKey.h"
#include "jobstore/sqliteDefs.h"

/// Every query of the program but those of the GPS rows (jobstore/epochs.h): its text, the
/// row it yields and the reader that takes the columns by position. No SQL and no column
/// number stands anywhere else. The tables and what their columns mean: docs/job-file.md.

namespace kestrin::jobstore {

inline constexpr int kSectionSlots = 16;
inline constexpr int kProductSlots = 3;

// ---------------------------------------------------------------- selection

/// How many of the two tables there are that every job has, whatever its version, and hardly
/// any other database. Reads none of their rows.
struct JobTables {
  using Row = std::int32_t;
  static constexpr Row kAll = 2;
  static constexpr std::string_view Text() {
    return "Select Count(*) From sqlite_master WHERE type='table' AND name In "
           "('GpsDataTable', 'ReferenceLocationChangeTable')";
  }
  static void Read(const Statement& columns, Row& count) { count = columns.linx_getInt(0); }
};

struct VersionTableCount {
  using Row = std::int32_t;
  static constexpr std::string_view Text() {
    return "Select Count(*) From sqlite_master WHERE type='table' AND name= 'VersionChangeTable'";
  }
  static void Read(const Statement& columns, Row& count) { count = columns.linx_getInt(0); }
};

/// The newest first; only the first row is read.
struct NewestVersion {
  using Row = std::string;
  static constexpr std::string_view Text() {
    return "Select sqlite_ver From VersionChangeTable Order By gpsWeek DESC, gpsMsec DESC";
  }
  static void Read(const Statement& columns, Row& version) { ReadText(columns, 0, version); }
};

struct EpochCount {
  using Row = std::int32_t;
  static constexpr std::string_view Text() {
    return kJoined<"Select Count(*) From GpsDataTable Where ", kGpsFilter>;
  }
  static void Read(const Statement& columns, Row& count) { count = columns.linx_getInt(0); }
};

/// The newest first; only the first row is read.
struct NewestEpoch {
  using Row = GpsKey;
  static constexpr std::string_view Text() {
    return kJoined<"Select gpsWeek, gpsMsec From GpsDataTable Where ", kGpsFilter,
                   " Order By gpsWeek DESC, gpsMsec DESC">;
  }
  static void Read(const Statement& columns, Row& time) { time = KeyOf(columns); }
};

// ---------------------------------------------------------------- change tables

/// Origin of the local offsets from `time` on: degrees.
struct ReferenceRow {
  GpsKey time;
  double latitude = 0;
  double longitude = 0;
};
struct References {
  using Row = ReferenceRow;
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, latitude, longitude From ReferenceLocationChangeTable "
           "Order By gpsWeek, gpsMsec";
  }
  static void Read(const Statement& columns, Row& row) {
    row.time = KeyOf(columns);
    row.latitude = columns.linx_getDouble(2) * base::kDegreesPerRadian;
    row.longitude = columns.linx_getDouble(3) * base::kDegreesPerRadian;
  }
};

/// The same with the altitude as stored.
struct ReferenceWithAltitudeRow : ReferenceRow {
  double altitude = 0;
};
struct ReferencesWithAltitude {
  using Row = ReferenceWithAltitudeRow;
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, latitude, longitude, altitude "
           "From ReferenceLocationChangeTable Order By gpsWeek, gpsMsec";
  }
  static void Read(const Statement& columns, Row& row) {
    References::Read(columns, row);
    row.altitude = columns.linx_getDouble(4);
  }
};

/// One boom section slot: metres. A negative width marks an absent section.
struct Section {
  double width = 0;
  double xOffset = 0;
  double yOffset = 0;
  double zOffset = 0;
};

/// The implement attached from `time` on.
struct ImplementRow {
  GpsKey time;
  std::string name;
  double number = 0;
  std::array<Section, kSectionSlots> sections{};
};

/// By position: week, millisecond, name, number, then four numbers a section; columns that
/// the table lacks are 0.
struct Implements {
  using Row = ImplementRow;
  static constexpr std::string_view Text() {
    return "Select * From ImplChangeTable Order By gpsWeek, gpsMsec";
  }
  static void Read(const Statement& columns, Row& row) {
    row.time = KeyOf(columns);
    ReadText(columns, 2, row.name);
    row.number = columns.linx_getDouble(3);
    std::int32_t column = 4;
    for (Section& section : row.sections) {
      section.width = columns.linx_getDouble(column++);
      section.xOffset = columns.linx_getDouble(column++);
      section.yOffset = columns.linx_getDouble(column++);
      section.zOffset = columns.linx_getDouble(column++);
    }
  }
};

/// A number for each product slot, from a column on.
using SlotRates = std::array<double, kProductSlots>;
inline void ReadSlots(const Statement& columns, std::int32_t column, SlotRates& rates) {
  for (double& rate : rates) rate = columns.linx_getDouble(column++);
}

/// Rates of the product slots from `time` on, as stored.
struct RatesRow {
  GpsKey time;
  SlotRates rates{};
};
struct RatesReader {
  using Row = RatesRow;
  static void Read(const Statement& columns, Row& row) {
    row.time = KeyOf(columns);
    ReadSlots(columns, 2, row.rates);
  }
};
struct DesiredRates : RatesReader {
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, desiredRate0, desiredRate1, desiredRate2 "
           "From AsAppliedDesRateChangeTable Order By gpsWeek, gpsMsec";
  }
};
struct ActualRates : RatesReader {
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, actualRate0, actualRate1, actualRate2 "
           "From AsAppliedActRateChangeTable Order By gpsWeek, gpsMsec";
  }
};

/// Names of the products in the slots from `time` on.
struct ProductsRow {
  GpsKey time;
  std::array<std::string, kProductSlots> names;
};

/// An empty name leaves the row's text as it was (ReadText).
struct Products {
  using Row = ProductsRow;
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, ProductName0, ProductName1, ProductName2 "
           "From AsAppliedProductChangeTable Order By gpsWeek, gpsMsec";
  }
  static void Read(const Statement& columns, Row& row) {
    row.time = KeyOf(columns);
    std::int32_t column = 2;
    for (std::string& name : row.names) ReadText(columns, column++, name);
  }
};

// ---------------------------------------------------------------- maxima
// NULL counts as 0.

/// Without the GPS filter: the rows that no export shows count here as well.
struct BoomStatusMaximum {
  using Row = std::int32_t;
  static constexpr std::string_view Text() {
    return "Select MAX(boomStatusBitfield) From GpsDataTable";
  }
  static void Read(const Statement& columns, Row& largest) { largest = columns.linx_getInt(0); }
};

/// Largest width of section slot 0 to 15 over all implements.
struct SectionWidthMaximum {
  using Row = double;
  static std::string Text(int section) {
    return "Select MAX(width" + std::to_string(section) + ") From ImplChangeTable";
  }
  static void Read(const Statement& columns, Row& largest) { largest = columns.linx_getDouble(0); }
};

/// Largest rate of each product slot.
struct RateMaximaReader {
  using Row = SlotRates;
  static void Read(const Statement& columns, Row& largest) { ReadSlots(columns, 0, largest); }
};
struct DesiredRateMaxima : RateMaximaReader {
  static constexpr std::string_view Text() {
    return "Select MAX(desiredRate0), MAX(desiredRate1), MAX(desiredRate2) "
           "From AsAppliedDesRateChangeTable";
  }
};
struct ActualRateMaxima : RateMaximaReader {
  static constexpr std::string_view Text() {
    return "Select MAX(actualRate0), MAX(actualRate1), MAX(actualRate2) "
           "From AsAppliedActRateChangeTable";
  }
};

}  // namespace kestrin::jobstore
