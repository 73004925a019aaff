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
    {"wire", "_WIRE", wire::ExportWireShape, Shape::kLine, WireFields},
    {"boom", "_BOOM", boom::ExportBoomShape, Shape::kLines, BoomFields},
    {"poly", "_POLY", coverage::ExportPolyShape, Shape::kPolygon, PolyFields},
    {"point", "_POINT", point::ExportPointShape, Shape::kPoint, PointFields},
}};

namespace {

constexpr ExportKind kNamed[] = {
    {"net", "_NET", net::ExportNetShape, Shape::kPolygon, NetFields,
     "the ground really covered, overlap counted once, under the sections that were on; its "
     "width is the implement row's own, where that of poly adds up"},
};

}  // namespace

constinit const std::span<const ExportKind> kNamedKinds(kNamed);

std::vector<const ExportKind*> AllKinds() {
  std::vector<const ExportKind*> kinds;
  for (const ExportKind& kind : kExportKinds) kinds.push_back(&kind);
  for (const ExportKind& kind : kNamedKinds) kinds.push_back(&kind);
  return kinds;
}

}  // namespace kestrin::exports
