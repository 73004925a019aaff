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

const ExportKind kNetKind{"net", "_NET", net::ExportNetShape};

}  // namespace kestrin::exports
