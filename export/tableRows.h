#pragma once

#include <stdexcept>

#include "base/runHost.h"
#include "export/exportRun.h"
#include "jobstore/job.h"

namespace kestrin::exports {

/// Whether a job is open; where it is not, the host is told.
inline bool IsOpenOrTold(const jobstore::Job& job, base::RunHost& host) {
  if (!job.IsOpen()) host.ShowMessage(NotOpenedText(job.Result()));
  return job.IsOpen();
}

/// Whether a query, or what stands on one, is prepared; where it is not, the host is told.
template <class Q>
bool IsPreparedOrTold(const Q& query, base::RunHost& host) {
  if (!query.Prepared()) host.ShowMessage(NotPreparedText(query.Result()));
  return query.Prepared();
}

/// Hands every row of a change table to `take`, in time order, each read into an empty row.
/// Failure: a table that cannot be queried is told to the host and left out.
template <class Q, class Take>
void ForEachRow(jobstore::Job& job, base::RunHost& host, Take take) {
  jobstore::Query<Q> query(job);
  IsPreparedOrTold(query, host);
  for (typename Q::Row row; query.Next(row); row = {}) take(row);
}

/// Failure: throws where a job was written to while it was read, so that rows may be of two states
/// of it.
inline void RequireOneState(const jobstore::Job& job) {
  if (!job.Library().IsOneState()) {
    throw std::runtime_error("the job was written to while it was read; export it again");
  }
}

/// How the reading of a job ended, for when all of it was read and before any of it is published:
/// what ended the GPS rows or, where that was their end, the first error of any query; kDone when
/// there was none.
/// Failure: as above.
template <class Rows>
std::int32_t EndOfReading(const jobstore::Job& job, const Rows& epochs) {
  RequireOneState(job);
  const std::int32_t end = epochs.LastStep();
  return end == jobstore::kDone ? job.Library().FirstError() : end;
}

/// The outcome for a job without a reference location, or with none that could be read.
/// Failure: as above.
inline ExportOutcome NothingIn(const jobstore::Job& job) {
  RequireOneState(job);
  return {.lastStep = job.Library().FirstError()};
}

}  // namespace kestrin::exports
