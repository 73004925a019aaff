#include "export/exportKinds.h"

#include "export/boom/boomExport.h"
#include "export/boom/table.h"
#include "export/coverage/coverageExport.h"
#include "export/coverage/ringWriter.h"
#include "export/net/netExport.h"
#include "export/net/netSet.h"
#include "export/point/pointExport.h"
#include "export/point/table.h"
#include "export/wire/wireExport.h"
#include "jobstore/job.h"

namespace kestrin::exports {
namespace {

using Fields = std::vector<shapefile::Field>;

Fields WireFields(const std::string&) { return {wire::kFields.begin(), wire::kFields.end()}; }
Fields BoomFields(const std::string&) { return {boom::kFields.begin(), boom::kFields.end()}; }
Fields PolyFields(const std::string&) {
  return {coverage::kFields.begin(), coverage::kFields.end()};
}
Fields NetFields(const std::string&) { return {net::kFields.begin(), net::kFields.end()}; }

Fields PointFields(const std::string& jobPath) {
  jobstore::Job job(jobPath);
  return point::FieldsOf(point::CountGroups(job));
}

}  // namespace

const ExportKinds kExportKinds{{
    {"wire", "_WIRE", wire::ExportWireShape, WireFields},
    {"boom", "_BOOM", boom::ExportBoomShape, BoomFields},
    {"poly", "_POLY", coverage::ExportPolyShape, PolyFields},
    {"point", "_POINT", point::ExportPointShape, PointFields},
}};

const ExportKind kNetKind{"net", "_NET", net::ExportNetShape, NetFields};

}  // namespace kestrin::exports
