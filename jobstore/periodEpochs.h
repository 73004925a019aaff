#pragma once

#include <cstdint>
#include <string>

#include "jobstore/epochs.h"
#include "jobstore/gpsKey.h"

namespace kestrin::jobstore {

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
