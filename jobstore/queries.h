#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "jobstore/fixedText.h"
#include "jobstore/gpsKey.h"
#include "jobstore/job.h"

/// Every query of the program: its text, the row it yields and the reader that
/// takes the columns by position. No SQL and no column number stands anywhere else.
/// The tables and what their columns mean: docs/job-file.md.

namespace kestrin::jobstore {

inline constexpr int kSectionSlots = 16;
inline constexpr int kProductSlots = 3;

/// Angles are stored in radians.
inline constexpr double kDegreesPerRadian = 57.2957795130823;

// ---------------------------------------------------------------- rows

/// Origin of the local offsets from `time` on: degrees, altitude as stored.
struct ReferenceRow {
  GpsKey time;
  double latitude = 0;
  double longitude = 0;
  double altitude = 0;
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

/// Rates of the three product slots from `time` on, as stored.
struct RatesRow {
  GpsKey time;
  std::array<double, kProductSlots> rates{};
};

/// Names of the products in the three slots from `time` on.
struct ProductsRow {
  GpsKey time;
  std::array<std::string, kProductSlots> names;
};

/// One GPS epoch. Offsets in metres from the reference location in force,
/// attitude in radians. A query fills only what it selects.
struct EpochRow {
  GpsKey time;
  double east = 0;
  double north = 0;
  double down = 0;
  double yaw = 0;
  double pitch = 0;
  double roll = 0;
  double speed = 0;
  std::int32_t type = 0;
  std::int32_t boomStatus = 0;

  /// The bit of `type` that marks a row as beginning a new stretch.
  static constexpr std::int32_t kNewStretch = 16384;
  bool BeginsStretch() const { return (type & kNewStretch) != 0; }
};

struct CountRow {
  std::int32_t count = 0;
};
struct TextRow {
  std::string text;
};
struct KeyRow {
  GpsKey time;
};
struct IntRow {
  std::int32_t value = 0;
};
struct DoubleRow {
  double value = 0;
};
/// The largest rate of each product slot; NULL counts as 0.
struct RateMaxima {
  std::array<double, kProductSlots> rates{};
};

// ---------------------------------------------------------------- the GPS filter

/// Which GPS rows take part. One text for every query over them, so that no two
/// parts of the program can come to see different rows.
inline constexpr FixedText kGpsFilter{"type & 8192"};

/// The GPS rows that take part, in time order.
template <FixedText columns>
inline constexpr std::string_view kEpochsText =
    kJoined<"Select ", columns, " From GpsDataTable Where ", kGpsFilter,
            " Order By gpsWeek, gpsMsec">;

// ---------------------------------------------------------------- selection

struct VersionTableCount {
  using Row = CountRow;
  static constexpr std::string_view Text() {
    return "Select Count(*) From sqlite_master WHERE type='table' AND name= 'VersionChangeTable'";
  }
  static void Read(const Columns& columns, Row& row);
};

/// The newest first; only the first row is read.
struct NewestVersion {
  using Row = TextRow;
  static constexpr std::string_view Text() {
    return "Select sqlite_ver From VersionChangeTable Order By gpsWeek DESC, gpsMsec DESC";
  }
  static void Read(const Columns& columns, Row& row);
};

struct EpochCount {
  using Row = CountRow;
  static constexpr std::string_view Text() {
    return kJoined<"Select Count(*) From GpsDataTable Where ", kGpsFilter>;
  }
  static void Read(const Columns& columns, Row& row);
};

/// The newest first; only the first row is read.
struct NewestEpoch {
  using Row = KeyRow;
  static constexpr std::string_view Text() {
    return kJoined<"Select gpsWeek, gpsMsec From GpsDataTable Where ", kGpsFilter,
                   " Order By gpsWeek DESC, gpsMsec DESC">;
  }
  static void Read(const Columns& columns, Row& row);
};

// ---------------------------------------------------------------- change tables

struct References {
  using Row = ReferenceRow;
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, latitude, longitude From ReferenceLocationChangeTable "
           "Order By gpsWeek, gpsMsec";
  }
  static void Read(const Columns& columns, Row& row);
};

struct ReferencesWithAltitude {
  using Row = ReferenceRow;
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, latitude, longitude, altitude "
           "From ReferenceLocationChangeTable Order By gpsWeek, gpsMsec";
  }
  static void Read(const Columns& columns, Row& row);
};

/// Read by position: week, millisecond, name, number, then four numbers a section.
struct Implements {
  using Row = ImplementRow;
  static constexpr std::string_view Text() {
    return "Select * From ImplChangeTable Order By gpsWeek, gpsMsec";
  }
  static void Read(const Columns& columns, Row& row);
};

struct DesiredRates {
  using Row = RatesRow;
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, desiredRate0, desiredRate1, desiredRate2 "
           "From AsAppliedDesRateChangeTable Order By gpsWeek, gpsMsec";
  }
  static void Read(const Columns& columns, Row& row);
};

struct ActualRates {
  using Row = RatesRow;
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, actualRate0, actualRate1, actualRate2 "
           "From AsAppliedActRateChangeTable Order By gpsWeek, gpsMsec";
  }
  static void Read(const Columns& columns, Row& row);
};

/// An empty name leaves the row's text as it was (Columns::Text).
struct Products {
  using Row = ProductsRow;
  static constexpr std::string_view Text() {
    return "Select gpsWeek, gpsMsec, ProductName0, ProductName1, ProductName2 "
           "From AsAppliedProductChangeTable Order By gpsWeek, gpsMsec";
  }
  static void Read(const Columns& columns, Row& row);
};

// ---------------------------------------------------------------- maxima

/// Without the GPS filter: the rows that no export shows count here as well.
struct BoomStatusMaximum {
  using Row = IntRow;
  static constexpr std::string_view Text() {
    return "Select MAX(boomStatusBitfield) From GpsDataTable";
  }
  static void Read(const Columns& columns, Row& row);
};

/// Largest width of section slot 0 to 15 over all implements.
struct SectionWidthMaximum {
  using Row = DoubleRow;
  static std::string Text(int section);
  static void Read(const Columns& columns, Row& row);
};

struct DesiredRateMaxima {
  using Row = RateMaxima;
  static constexpr std::string_view Text() {
    return "Select MAX(desiredRate0), MAX(desiredRate1), MAX(desiredRate2) "
           "From AsAppliedDesRateChangeTable";
  }
  static void Read(const Columns& columns, Row& row);
};

struct ActualRateMaxima {
  using Row = RateMaxima;
  static constexpr std::string_view Text() {
    return "Select MAX(actualRate0), MAX(actualRate1), MAX(actualRate2) "
           "From AsAppliedActRateChangeTable";
  }
  static void Read(const Columns& columns, Row& row);
};

// ---------------------------------------------------------------- GPS rows
// The exports select east before north, the previews north before east; each
// reader keeps its query's own order.

struct WireEpochs {
  using Row = EpochRow;
  static constexpr std::string_view Text() {
    return kEpochsText<"gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, type">;
  }
  static void Read(const Columns& columns, Row& row);
};

struct PolyEpochs {
  using Row = EpochRow;
  static constexpr std::string_view Text() {
    return kEpochsText<"gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type">;
  }
  static void Read(const Columns& columns, Row& row);
};

struct PointEpochs {
  using Row = EpochRow;
  static constexpr std::string_view Text() {
    return kEpochsText<
        "gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, d_I_B__B2, yaw, pitch, roll, speed, type, "
        "boomStatusBitfield">;
  }
  static void Read(const Columns& columns, Row& row);
};

/// The epochs of one period of the boom export's change timeline: from `start` up
/// to, not including, `end`; without an end, all from `start` on.
///
/// A period that ends in a later week keeps the bound gpsMsec < end.gpsMsec on the
/// rows of its own first week too, so those at or after that millisecond belong to
/// no period. This is how the sets have always been cut; downstream tools rely on it.
///
/// A query per period reads the whole table for each, and a job can hold tens of
/// thousands of periods. The text without a period yields the epochs of all of
/// them, and those between, in one scan and in the same order; Takes says of each
/// what the time clause of a period says.
struct BoomEpochs {
  using Row = EpochRow;
  static constexpr FixedText kColumns{
      "gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type, boomStatusBitfield"};
  static std::string Text(GpsKey start);
  static std::string Text(GpsKey start, GpsKey end);
  static constexpr std::string_view Text() { return kEpochsText<kColumns>; }
  /// Whether the period from `start` to `end`, if it ends, holds the time.
  static bool Takes(GpsKey start, std::optional<GpsKey> end, GpsKey time);
  static void Read(const Columns& columns, Row& row);
};

/// For the preview's extent and for its boom lines.
struct PreviewBoomEpochs {
  using Row = EpochRow;
  static constexpr std::string_view Text() {
    return kEpochsText<"gpsWeek, gpsMsec, n_I_B__B2, e_I_B__B2, yaw">;
  }
  static void Read(const Columns& columns, Row& row);
};

struct PreviewWireEpochs {
  using Row = EpochRow;
  static constexpr std::string_view Text() {
    return kEpochsText<"gpsWeek, gpsMsec, n_I_B__B2, e_I_B__B2, type">;
  }
  static void Read(const Columns& columns, Row& row);
};

struct PreviewPolyEpochs {
  using Row = EpochRow;
  static constexpr std::string_view Text() {
    return kEpochsText<"gpsWeek, gpsMsec, n_I_B__B2, e_I_B__B2, type, yaw">;
  }
  static void Read(const Columns& columns, Row& row);
};

struct PreviewPointEpochs {
  using Row = EpochRow;
  static constexpr std::string_view Text() {
    return kEpochsText<"gpsWeek, gpsMsec, n_I_B__B2, e_I_B__B2">;
  }
  static void Read(const Columns& columns, Row& row);
};

}  // namespace kestrin::jobstore
