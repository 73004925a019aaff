#pragma once

#include <string>

#include "jobstore/epochs.h"

namespace kestrin::test {

/// The epochs of one period of the boom export's change timeline as a query of their own:
/// from `start` up to, not including, `end`; without an end, all from `start` on. The
/// export cuts its periods out of one scan instead (boom::Periods); this text is what the
/// cut is measured by.
struct BoomPeriodEpochs : jobstore::BoomEpochs {
  static std::string Text(jobstore::GpsKey start);
  static std::string Text(jobstore::GpsKey start, jobstore::GpsKey end);
};

}  // namespace kestrin::test
