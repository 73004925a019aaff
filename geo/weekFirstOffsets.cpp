#include "geo/weekFirstOffsets.h"

namespace kestrin::geo {

void WeekFirstOffsets::AdvanceTo(jobstore::GpsKey time) {
  if (time.gpsWeek > Reference().time.gpsWeek) {
    while (HasNext() && NextTime().gpsWeek <= time.gpsWeek) TakeNext();
  }
  if (time.gpsWeek != Reference().time.gpsWeek) return;
  while (HasNext() && NextTime().gpsWeek == time.gpsWeek && NextTime().gpsMsec <= time.gpsMsec) {
    TakeNext();
  }
}

}  // namespace kestrin::geo
