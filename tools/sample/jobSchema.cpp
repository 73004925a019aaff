#include "tools/sample/jobSchema.h"

namespace kestrin::sample {

std::string JobSchema() {
  std::string implement =
      "CREATE TABLE ImplChangeTable (gpsWeek integer, gpsMsec integer, "
      "implName text, implNumber real";
  for (int section = 0; section < 16; ++section) {
    const std::string digits = std::to_string(section);
    for (const char* column : {"width", "xOffset", "yOffset", "zOffset"}) {
      implement += std::string(", ") + column + digits + " real";
    }
  }
  implement += ");\n";
  return "CREATE TABLE GpsDataTable (gpsWeek integer, gpsMsec integer, e_I_B__B2 real, "
         "n_I_B__B2 real, d_I_B__B2 real, yaw real, pitch real, roll real, speed real, "
         "type integer, boomStatusBitfield integer);\n"
         "CREATE TABLE ReferenceLocationChangeTable (gpsWeek integer, gpsMsec integer, "
         "latitude real, longitude real, altitude real);\n" +
         implement +
         "CREATE TABLE AsAppliedDesRateChangeTable (gpsWeek integer, gpsMsec integer, "
         "desiredRate0 real, desiredRate1 real, desiredRate2 real);\n"
         "CREATE TABLE AsAppliedActRateChangeTable (gpsWeek integer, gpsMsec integer, "
         "actualRate0 real, actualRate1 real, actualRate2 real);\n"
         "CREATE TABLE AsAppliedProductChangeTable (gpsWeek integer, gpsMsec integer, "
         "ProductName0 text, ProductName1 text, ProductName2 text);\n"
         "CREATE TABLE VersionChangeTable (gpsWeek integer, gpsMsec integer, sqlite_ver text);\n";
}

}  // namespace kestrin::sample
