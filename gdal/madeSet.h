#pragma once

#include <gdal_priv.h>

#include "export/exportKinds.h"
#include "gdal/jobSource.h"

namespace kestrin::gdal {

/// Makes the set of a kind and opens it with GDAL's own shapefile driver. It lies in a private
/// folder of the system's temporary one and has no name any more when this returns: the space is
/// given back when the data set closes or its process ends, however it ends. Any thread may call,
/// several at once.
///
/// Failure: null, which is also a job with nothing to export. What there is to say, also of rows
/// that ended early, is said through CPLError in the words of the other programs: CE_Failure
/// where rows are missing that cannot be had, CE_Warning where there are none or fewer. Throws
/// nothing.
GDALDatasetUniquePtr MakeSet(const exports::ExportKind& kind, const JobSource& job) noexcept;

}  // namespace kestrin::gdal
