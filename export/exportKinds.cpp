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

/// Of a kind whose sets have the same fields whatever the job.
template <const auto& fields>
Fields Always(const std::string&) {
  return {fields.begin(), fields.end()};
}

Fields PointFields(const std::string& jobPath) {
  jobstore::Job job(jobPath);
  return point::FieldsOf(point::CountGroups(job));
}

}  // namespace

const ExportKinds kExportKinds{{
    {"wire", "_WIRE", wire::ExportWireShape, Shape::kLine, Always<wire::kFields>},
    {"boom", "_BOOM", boom::ExportBoomShape, Shape::kLines, Always<boom::kFields>},
    {"poly", "_POLY", coverage::ExportPolyShape, Shape::kPolygon, Always<coverage::kFields>},
    {"point", "_POINT", point::ExportPointShape, Shape::kPoint, PointFields},
}};

namespace {

constexpr ExportKind kNamed[] = {
    {"net", "_NET", net::ExportNetShape, Shape::kPolygon, Always<net::kFields>,
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
