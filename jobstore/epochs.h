#pragma once

#include <cstdint>
#include <string_view>

#include "jobstore/fixedText.h"
#include "jobstore/gpsKey.h"
#include "jobstore/sqliteDefs.h"

/// The GPS rows, and what each reader of them selects. A query is its list of columns: its
/// text, its row and its reader come from that one list, so a row has the fields that were
/// selected and no others. What the columns mean: docs/job-file.md.

namespace kestrin::jobstore {

/// Which GPS rows take part. One text for every query over them, so that no two parts of
/// the program can come to see different rows.
inline constexpr FixedText kGpsFilter{"type & 8192"};

// ---------------------------------------------------------------- columns
// Each with the field it is read into and its text behind another column's. Offsets are
// metres from the reference location in force, angles radians, the rest as stored.

struct East {
  double east = 0;
  static constexpr FixedText kColumn{", e_I_B__B2"};
  static constexpr auto kField = &East::east;
};
struct North {
  double north = 0;
  static constexpr FixedText kColumn{", n_I_B__B2"};
  static constexpr auto kField = &North::north;
};
struct Down {
  double down = 0;
  static constexpr FixedText kColumn{", d_I_B__B2"};
  static constexpr auto kField = &Down::down;
};
struct Yaw {
  double yaw = 0;
  static constexpr FixedText kColumn{", yaw"};
  static constexpr auto kField = &Yaw::yaw;
};
struct Pitch {
  double pitch = 0;
  static constexpr FixedText kColumn{", pitch"};
  static constexpr auto kField = &Pitch::pitch;
};
struct Roll {
  double roll = 0;
  static constexpr FixedText kColumn{", roll"};
  static constexpr auto kField = &Roll::roll;
};
struct Speed {
  double speed = 0;
  static constexpr FixedText kColumn{", speed"};
  static constexpr auto kField = &Speed::speed;
};
struct EpochType {
  std::int32_t type = 0;
  static constexpr FixedText kColumn{", type"};
  static constexpr auto kField = &EpochType::type;

  /// The value in `type` that marks a row as beginning a new stretch.
  static constexpr std::int32_t kNewStretch = 16384;
  bool BeginsStretch() const { return (type & kNewStretch) != 0; }
};
struct BoomStatus {
  std::int32_t boomStatus = 0;
  static constexpr FixedText kColumn{", boomStatusBitfield"};
  static constexpr auto kField = &BoomStatus::boomStatus;
};

// ---------------------------------------------------------------- queries

/// The time key that every table's rows begin with.
inline GpsKey KeyOf(const Statement& row) { return {row.linx_getInt(0), row.linx_getInt(1)}; }

inline void ReadField(const Statement& row, std::int32_t column, double& field) {
  field = row.linx_getDouble(column);
}
inline void ReadField(const Statement& row, std::int32_t column, std::int32_t& field) {
  field = row.linx_getInt(column);
}

/// The GPS rows that take part, in time order, with these columns behind the time key.
template <class... Columns>
struct Epochs {
  struct Row : Columns... {
    GpsKey time;
  };

  static constexpr std::string_view Text() {
    return kJoined<"Select gpsWeek, gpsMsec", Columns::kColumn..., " From GpsDataTable Where ",
                   kGpsFilter, " Order By gpsWeek, gpsMsec">;
  }

  static void Read(const Statement& statement, Row& row) {
    row.time = KeyOf(statement);
    std::int32_t column = 2;
    (ReadField(statement, column++, row.*Columns::kField), ...);
  }
};

// The exports select east before north, the previews north before east.

using WireEpochs = Epochs<East, North, EpochType>;
using PolyEpochs = Epochs<East, North, Yaw, EpochType>;
using PointEpochs = Epochs<East, North, Down, Yaw, Pitch, Roll, Speed, EpochType, BoomStatus>;
using BoomEpochs = Epochs<East, North, Yaw, EpochType, BoomStatus>;

/// For the preview's extent and for its boom lines.
using PreviewBoomEpochs = Epochs<North, East, Yaw>;
using PreviewWireEpochs = Epochs<North, East, EpochType>;
using PreviewPolyEpochs = Epochs<North, East, EpochType, Yaw>;
using PreviewPointEpochs = Epochs<North, East>;

/// All that a job says of an epoch.
using EpochRow = PointEpochs::Row;

}  // namespace kestrin::jobstore
