#pragma once

#include <string>
#include <vector>

#include "tools/exporter/failure.h"

namespace kestrin::exporter {

/// The job files that a command line means, and the folders of it that none came of.
struct FoundJobs {
  std::vector<std::string> paths;
  std::vector<Failure> failures;
};

/// Puts in the place of each folder the job files in it, and with `recursive` those of the
/// folders below, each folder once however links lead to it: the files of a folder come before
/// its folders, each in the order of their names' bytes. Everything else stays as it is named.
///
/// Left out are names that begin with a dot, what systems keep on a drive for themselves, and
/// below a folder that is named the copies of jobs beside their own sets.
///
/// Failure: a folder that cannot be read, or has no job file, is told in the result. Throws
/// RunCancelled when the process is asked to stop.
FoundJobs FindJobs(const std::vector<std::string>& named, bool recursive);

}  // namespace kestrin::exporter
