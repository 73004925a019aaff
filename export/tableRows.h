#pragma once

#include "base/runHost.h"
#include "export/exportRun.h"
#include "jobstore/job.h"

namespace kestrin::exports {

/// Hands every row of a change table to `take`, in time order, each read into an empty row.
/// Failure: a table that cannot be queried is told to the host and left out.
template <class Q, class Take>
void ForEachRow(jobstore::Job& job, base::RunHost& host, Take take) {
  jobstore::Query<Q> query(job);
  if (!query.Prepared()) host.ShowMessage(NotPreparedText(query.Result()));
  for (typename Q::Row row; query.Next(row); row = {}) take(row);
}

}  // namespace kestrin::exports
