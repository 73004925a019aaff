#pragma once

#include <string>

#include "tests/export/coverage/ringJudge.h"

namespace kestrin::test {

/// Judges a coverage set that was written, by the job's tables and RingJudge; `job` is what
/// faults are named after. No set is judged as one without rings, and a record of more than
/// one part is a fault.
/// Failure: std::runtime_error when the job or the set cannot be read.
Verdict JudgeSet(const std::string& job, const std::string& jobPath, const std::string& basePath,
                 Asked asked = Asked::kChangedGround);

}  // namespace kestrin::test
