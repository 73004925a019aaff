#include "tests/export/boom/boomPeriodQuery.h"

namespace kestrin::test {
namespace {

std::string Week(const char* relation, std::int32_t week) {
  return "gpsWeek " + std::string(relation) + " " + std::to_string(week);
}
std::string Msec(const char* relation, std::int32_t msec) {
  return "gpsMsec " + std::string(relation) + " " + std::to_string(msec);
}

std::string WithClause(const std::string& timeClause) {
  return "Select gpsWeek, gpsMsec, e_I_B__B2, n_I_B__B2, yaw, type, boomStatusBitfield "
         "From GpsDataTable Where type & 8192 And (" +
         timeClause + ") Order By gpsWeek, gpsMsec";
}

}  // namespace

std::string BoomPeriodEpochs::Text(jobstore::GpsKey start) {
  return WithClause(Week(">", start.gpsWeek) + " Or (" + Week("=", start.gpsWeek) + " And " +
                    Msec(">=", start.gpsMsec) + ")");
}

std::string BoomPeriodEpochs::Text(jobstore::GpsKey start, jobstore::GpsKey end) {
  std::string clause = "(" + Week("=", start.gpsWeek) + " And " + Msec(">=", start.gpsMsec) +
                       " And " + Msec("<", end.gpsMsec) + ")";
  if (end.gpsWeek > start.gpsWeek) {
    clause += " Or (" + Week(">", start.gpsWeek) + " And " + Week("<", end.gpsWeek) + ") Or (" +
              Week(">", start.gpsWeek) + " And " + Week("=", end.gpsWeek) + " And " +
              Msec("<", end.gpsMsec) + ")";
  }
  return WithClause(clause);
}

}  // namespace kestrin::test
