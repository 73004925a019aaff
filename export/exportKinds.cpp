#include "export/exportKinds.h"

#include "export/boom/boomExport.h"
#include "export/coverage/coverageExport.h"
#include "export/net/netExport.h"
#include "export/point/pointExport.h"
#include "export/wire/wireExport.h"

namespace kestrin::exports {

const ExportKinds kExportKinds{{
    {"wire", "_WIRE", wire::ExportWireShape},
    {"boom", "_BOOM", boom::ExportBoomShape},
    {"poly", "_POLY", coverage::ExportPolyShape},
    {"point", "_POINT", point::ExportPointShape},
}};

namespace {

constexpr ExportKind kNamed[] = {
    {"net", "_NET", net::ExportNetShape,
     "the ground really covered, overlap counted once, under the sections that were on; its "
     "width is the implement row's own, where that of poly adds up"},
};

}  // namespace

constinit const std::span<const ExportKind> kNamedKinds(kNamed);

}  // namespace kestrin::exports
