#include "gdal/driver.h"

#include <gdal_priv.h>

#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <string_view>

#include "base/utf8Path.h"
#include "gdal/jobDataset.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin::gdal {
namespace {

constexpr const char* kName = "Kestrin";

constexpr const char* kOpenOptions =
    "<OpenOptionList>"
    "<Option name='NET' type='boolean' default='NO'"
    " description='List the layer net, the ground really covered, with the others'/>"
    "<Option name='ALL_SECTIONS' type='boolean' default='NO'"
    " description='For net: count the full width, whatever sections were on'/>"
    "</OpenOptionList>";

/// A database, and none that has said to be a GeoPackage.
bool MayBeJob(std::string_view header) {
  constexpr std::string_view kDatabase{"SQLite format 3\0", 16};
  constexpr std::size_t kApplication = 68;
  return header.starts_with(kDatabase) && header.size() >= 100 &&
         header.substr(kApplication, 2) != "GP";
}

int Identify(GDALOpenInfo* info) {
  const auto size = static_cast<std::size_t>(info->nHeaderBytes);
  if (size == 0 || !MayBeJob({reinterpret_cast<const char*>(info->pabyHeader), size})) return FALSE;
  try {
    jobstore::Job job(info->pszFilename);
    jobstore::JobTables::Row tables = 0;
    jobstore::ReadFirst<jobstore::JobTables>(job, tables);
    return tables == jobstore::JobTables::kAll ? TRUE : FALSE;
  } catch (const std::exception&) {
    return FALSE;
  }
}

GDALDataset* Open(GDALOpenInfo* info) {
  if (Identify(info) == FALSE) return nullptr;
  if (info->eAccess == GA_Update) {
    // Not left to other drivers either: they would write to it.
    CPLError(CE_Failure, CPLE_NoWriteAccess, "A job is read only: %s", info->pszFilename);
    return nullptr;
  }
  try {
    const JobSource job{base::Utf8Of(std::filesystem::absolute(base::PathOf(info->pszFilename))),
                        CPLFetchBool(info->papszOpenOptions, "ALL_SECTIONS", false)};
    return std::make_unique<JobDataset>(job, CPLFetchBool(info->papszOpenOptions, "NET", false))
        .release();
  } catch (const std::exception& error) {
    CPLError(CE_Failure, CPLE_AppDefined, "%s: %s", info->pszFilename, error.what());
    return nullptr;
  }
}

}  // namespace
}  // namespace kestrin::gdal

void RegisterOGRKestrin() {
  namespace gdal = kestrin::gdal;
  if (!GDAL_CHECK_VERSION(gdal::kName) || GDALGetDriverByName(gdal::kName) != nullptr) return;
  auto driver = std::make_unique<GDALDriver>();
  driver->SetDescription(gdal::kName);
  driver->SetMetadataItem(GDAL_DCAP_VECTOR, "YES");
  driver->SetMetadataItem(GDAL_DMD_LONGNAME, "Kestrin job file");
  driver->SetMetadataItem(GDAL_DMD_EXTENSIONS, "sqlite");
  driver->SetMetadataItem(GDAL_DMD_OPENOPTIONLIST, gdal::kOpenOptions);
  driver->SetMetadataItem(GDAL_DMD_SUPPORTED_SQL_DIALECTS, "OGRSQL SQLITE");
  driver->pfnIdentify = gdal::Identify;
  driver->pfnOpen = gdal::Open;
  GetGDALDriverManager()->RegisterDriver(driver.release());
}
