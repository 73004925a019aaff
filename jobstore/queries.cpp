#include "jobstore/queries.h"

namespace kestrin::jobstore {
namespace {

GpsKey KeyOf(const Columns& columns) { return {columns.Int(0), columns.Int(1)}; }

/// A reference location's columns, degrees from the job's radians.
void ReadReference(const Columns& columns, ReferenceRow& row) {
  row.time = KeyOf(columns);
  row.latitude = columns.Double(2) * kDegreesPerRadian;
  row.longitude = columns.Double(3) * kDegreesPerRadian;
}

void ReadRates(const Columns& columns, RatesRow& row) {
  row.time = KeyOf(columns);
  for (int slot = 0; slot < kProductSlots; ++slot) {
    row.rates[static_cast<std::size_t>(slot)] = columns.Double(2 + slot);
  }
}

void ReadMaxima(const Columns& columns, RateMaxima& row) {
  for (int slot = 0; slot < kProductSlots; ++slot) {
    row.rates[static_cast<std::size_t>(slot)] = columns.Double(slot);
  }
}

/// "gpsWeek <relation> <number>" and the like, for the one clause with numbers.
std::string Week(const char* relation, std::int32_t week) {
  return "gpsWeek " + std::string(relation) + " " + std::to_string(week);
}
std::string Msec(const char* relation, std::int32_t msec) {
  return "gpsMsec " + std::string(relation) + " " + std::to_string(msec);
}

std::string BoomText(const std::string& timeClause) {
  constexpr std::string_view kBeforeClause =
      kJoined<"Select ", BoomEpochs::kColumns, " From GpsDataTable Where ", kGpsFilter, " And (">;
  return std::string(kBeforeClause) + timeClause + ") Order By gpsWeek, gpsMsec";
}

}  // namespace

void VersionTableCount::Read(const Columns& columns, Row& row) { row.count = columns.Int(0); }

void NewestVersion::Read(const Columns& columns, Row& row) { columns.Text(0, row.text); }

void EpochCount::Read(const Columns& columns, Row& row) { row.count = columns.Int(0); }

void NewestEpoch::Read(const Columns& columns, Row& row) { row.time = KeyOf(columns); }

void References::Read(const Columns& columns, Row& row) { ReadReference(columns, row); }

void ReferencesWithAltitude::Read(const Columns& columns, Row& row) {
  ReadReference(columns, row);
  row.altitude = columns.Double(4);
}

void Implements::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  columns.Text(2, row.name);
  row.number = columns.Double(3);
  int column = 4;
  for (Section& section : row.sections) {
    section.width = columns.Double(column++);
    section.xOffset = columns.Double(column++);
    section.yOffset = columns.Double(column++);
    section.zOffset = columns.Double(column++);
  }
}

void DesiredRates::Read(const Columns& columns, Row& row) { ReadRates(columns, row); }

void ActualRates::Read(const Columns& columns, Row& row) { ReadRates(columns, row); }

void Products::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  for (int slot = 0; slot < kProductSlots; ++slot) {
    columns.Text(2 + slot, row.names[static_cast<std::size_t>(slot)]);
  }
}

void BoomStatusMaximum::Read(const Columns& columns, Row& row) { row.value = columns.Int(0); }

std::string SectionWidthMaximum::Text(int section) {
  return "Select MAX(width" + std::to_string(section) + ") From ImplChangeTable";
}
void SectionWidthMaximum::Read(const Columns& columns, Row& row) { row.value = columns.Double(0); }

void DesiredRateMaxima::Read(const Columns& columns, Row& row) { ReadMaxima(columns, row); }

void ActualRateMaxima::Read(const Columns& columns, Row& row) { ReadMaxima(columns, row); }

void WireEpochs::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  row.east = columns.Double(2);
  row.north = columns.Double(3);
  row.type = columns.Int(4);
}

void PolyEpochs::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  row.east = columns.Double(2);
  row.north = columns.Double(3);
  row.yaw = columns.Double(4);
  row.type = columns.Int(5);
}

void PointEpochs::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  row.east = columns.Double(2);
  row.north = columns.Double(3);
  row.down = columns.Double(4);
  row.yaw = columns.Double(5);
  row.pitch = columns.Double(6);
  row.roll = columns.Double(7);
  row.speed = columns.Double(8);
  row.type = columns.Int(9);
  row.boomStatus = columns.Int(10);
}

std::string BoomEpochs::Text(GpsKey start) {
  return BoomText(Week(">", start.gpsWeek) + " Or (" + Week("=", start.gpsWeek) + " And " +
                  Msec(">=", start.gpsMsec) + ")");
}

std::string BoomEpochs::Text(GpsKey start, GpsKey end) {
  std::string clause = "(" + Week("=", start.gpsWeek) + " And " + Msec(">=", start.gpsMsec) +
                       " And " + Msec("<", end.gpsMsec) + ")";
  if (end.gpsWeek > start.gpsWeek) {
    clause += " Or (" + Week(">", start.gpsWeek) + " And " + Week("<", end.gpsWeek) + ") Or (" +
              Week(">", start.gpsWeek) + " And " + Week("=", end.gpsWeek) + " And " +
              Msec("<", end.gpsMsec) + ")";
  }
  return BoomText(clause);
}

bool BoomEpochs::Takes(GpsKey start, std::optional<GpsKey> end, GpsKey time) {
  if (!end) return time >= start;
  if (time.gpsWeek == start.gpsWeek) {
    return time.gpsMsec >= start.gpsMsec && time.gpsMsec < end->gpsMsec;
  }
  return time > start && time < *end;
}

void BoomEpochs::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  row.east = columns.Double(2);
  row.north = columns.Double(3);
  row.yaw = columns.Double(4);
  row.type = columns.Int(5);
  row.boomStatus = columns.Int(6);
}

void PreviewBoomEpochs::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  row.north = columns.Double(2);
  row.east = columns.Double(3);
  row.yaw = columns.Double(4);
}

void PreviewWireEpochs::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  row.north = columns.Double(2);
  row.east = columns.Double(3);
  row.type = columns.Int(4);
}

void PreviewPolyEpochs::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  row.north = columns.Double(2);
  row.east = columns.Double(3);
  row.type = columns.Int(4);
  row.yaw = columns.Double(5);
}

void PreviewPointEpochs::Read(const Columns& columns, Row& row) {
  row.time = KeyOf(columns);
  row.north = columns.Double(2);
  row.east = columns.Double(3);
}

}  // namespace kestrin::jobstore
