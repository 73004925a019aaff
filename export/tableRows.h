#pragma once

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

}  // namespace kestrin::exports
