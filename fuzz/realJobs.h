#pragma once

#include <string>
#include <vector>

namespace kestrin::fuzz {

/// A job's files as a console leaves them: the job and what lies beside it, if anything.
struct RealJob {
  std::string job;
  std::string suffix;
  std::string beside;
};

/// Small jobs, one in each state in which a console can leave one: at rest, with texts of
/// 16-bit characters and an index, written ahead, cut off in a transaction (with a journal),
/// and with a log.
std::vector<RealJob> RealJobs();

/// Makes the sums in a changed log or journal right again, so that it is read all the same.
void MendSums(RealJob& job);

}  // namespace kestrin::fuzz
