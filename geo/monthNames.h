#pragma once

#include "geo/gpsTime.h"

namespace kestrin::geo {

/// The abbreviated month names of the user's language as the system gives them,
/// without leading blanks, in the system's 8-bit text (UTF-8 on Windows); English
/// ones when it gives none. The process's own locale is neither asked nor changed.
MonthNames UserMonthNames();

}  // namespace kestrin::geo
