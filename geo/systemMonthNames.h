#pragma once

#include "geo/gpsTime.h"

namespace kestrin::geo {

/// The abbreviated month names of the user's language just as the system gives them, in
/// its 8-bit text (UTF-8 on Windows); empty where it gives none.
MonthNames SystemMonthNames();

}  // namespace kestrin::geo
