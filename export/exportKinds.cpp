#include "export/exportKinds.h"

#include "export/boomExport.h"
#include "export/pointExport.h"
#include "export/polyExport.h"
#include "export/wireExport.h"

namespace kestrin {

const std::array<ExportKind, kKindCount> kExportKinds{{
    {"wire", "_WIRE", ExportWireShape},
    {"boom", "_BOOM", ExportBoomShape},
    {"poly", "_POLY", ExportPolyShape},
    {"point", "_POINT", ExportPointShape},
}};

}  // namespace kestrin
