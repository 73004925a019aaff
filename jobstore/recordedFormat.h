#pragma once

#include <string>

#include "jobstore/job.h"

namespace kestrin::jobstore {

/// The format version that a job's newest row of versions says, without the blanks around it:
/// "3.2.8-1".
/// Failure: empty, where the job says none or cannot be queried.
std::string RecordedFormat(Job& job);

}  // namespace kestrin::jobstore
