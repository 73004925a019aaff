#pragma once

#include <string>

#include "base/fileSystem.h"

namespace kestrin::opening {

/// Copies a job to a name that nothing has yet, whole or not at all. A part of it that lies
/// beside it, in a write-ahead log or in the journal of a transaction that was cut off, goes
/// into the copy's one file, by way of the temporary folder; any other job is copied byte for
/// byte. The job keeps every byte, and so does its folder. Paths in UTF-8.
/// Failure: base::FileError. It is about the job where another program writes to that meanwhile,
/// and, with the library's code as the reason, where its parts cannot be brought together.
void CopyJob(base::FileSystem& files, const std::string& job, const std::string& copy);

}  // namespace kestrin::opening
