#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <limits>
#include <string>

#include "jobstore/epochs.h"
#include "jobstore/gpsKey.h"
#include "jobstore/sqliteDefs.h"

namespace kestrin::jobstore {

/// All epochs in time order, with what a query's text makes of their keys beside whole numbers:
/// NULL compares with none of them, as NaN does, and whatever is no number lies behind them all.
struct ScannedEpochs : BoomEpochs {
  static constexpr std::int32_t kWeek = 0;
  static constexpr std::int32_t kMsec = 1;

  struct Row : BoomEpochs::Row {
    double week = 0;
    double msec = 0;
  };

  static void Read(const Statement& statement, Row& row) {
    // The types first, which reading can change.
    row.week = Compared(statement, kWeek);
    row.msec = Compared(statement, kMsec);
    BoomEpochs::Read(statement, row);
  }

 private:
  static double Compared(const Statement& statement, std::int32_t column) {
    const std::int32_t type = statement.linx_getColType(column);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) return statement.linx_getDouble(column);
    using Limits = std::numeric_limits<double>;
    return type == SQLITE_NULL ? Limits::quiet_NaN() : Limits::infinity();
  }
};

/// The epochs of one period of the boom export's change timeline: from `start` up to, not
/// including, `end`; without an end, all from `start` on. A period that ends in a later week
/// keeps the bound gpsMsec < end.gpsMsec on the rows of its own first week too, so those at or
/// after that millisecond belong to no period. This is how the sets have always been cut;
/// downstream tools rely on it.
struct PeriodEpochs : BoomEpochs {
  static std::string Text(GpsKey start) {
    return With(Week(">", start) + " Or (" + Week("=", start) + " And " + Msec(">=", start) + ")");
  }

  static std::string Text(GpsKey start, GpsKey end) {
    std::string clause =
        "(" + Week("=", start) + " And " + Msec(">=", start) + " And " + Msec("<", end) + ")";
    if (end.gpsWeek > start.gpsWeek) {
      clause += " Or (" + Week(">", start) + " And " + Week("<", end) + ") Or (" +
                Week(">", start) + " And " + Week("=", end) + " And " + Msec("<", end) + ")";
    }
    return With(clause);
  }

 private:
  static std::string Week(const char* relation, GpsKey key) {
    return "gpsWeek " + std::string(relation) + " " + std::to_string(key.gpsWeek);
  }
  static std::string Msec(const char* relation, GpsKey key) {
    return "gpsMsec " + std::string(relation) + " " + std::to_string(key.gpsMsec);
  }
  static std::string With(const std::string& clause) {
    std::string text(BoomEpochs::Text());
    return text.insert(text.find(" Order By"), " And (" + clause + ")");
  }
};

}  // namespace kestrin::jobstore
