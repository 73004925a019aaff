#include "geo/proj_api.h"

#include <proj.h>

#include <cstddef>
#include <string>

namespace kestrin::geo {
namespace {

/// The file system that PROJ is shown: one without a file. It would look for its database
/// and its configuration otherwise, wherever the environment says, though a projection
/// given by its parameters needs neither.
PROJ_FILE_API NoFiles() {
  PROJ_FILE_API files{};
  files.version = 1;
  files.open_cbk = [](PJ_CONTEXT*, const char*, PROJ_OPEN_ACCESS, void*) -> PROJ_FILE_HANDLE* {
    return nullptr;
  };
  files.read_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, void*, std::size_t, void*) {
    return std::size_t{0};
  };
  files.write_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, const void*, std::size_t, void*) {
    return std::size_t{0};
  };
  // NOLINTNEXTLINE(google-runtime-int): the type is PROJ's.
  files.seek_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, long long, int, void*) { return 0; };
  files.tell_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, void*) { return 0ULL; };
  files.close_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, void*) {};
  files.exists_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; };
  files.mkdir_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; };
  files.unlink_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; };
  files.rename_cbk = [](PJ_CONTEXT*, const char*, const char*, void*) { return 0; };
  return files;
}

/// With the datum's name, PROJ goes through WGS84, which costs time and moves points by up
/// to 0.1 mm.
std::string WithEllipsoidForDatum(std::string definition) {
  const std::string datum = "+datum=NAD83";
  const std::size_t at = definition.find(datum);
  if (at != std::string::npos) definition.replace(at, datum.size(), "+ellps=GRS80");
  return definition;
}

/// Converts a point in place and returns 0.
/// Failure: the error code, with the point as PROJ left it.
std::int32_t Step(const ProjHandle& handle, PJ_DIRECTION direction, double& x, double& y) {
  const PJ_COORD result = proj_trans(handle.projection, direction, PJ_COORD{{x, y, 0, 0}});
  x = result.v[0];
  y = result.v[1];
  if (IsConverted(x, y)) return 0;
  const std::int32_t error = proj_errno_reset(handle.projection);
  return error != 0 ? error : PROJ_ERR_COORD_TRANSFM_INVALID_COORD;
}

}  // namespace

ProjHandle* pjInitPlus(const char* definition) {
  // A context of its own: what the process does with PROJ otherwise stays as it was, and
  // nothing is printed, whatever PROJ_DEBUG says.
  auto* handle = new ProjHandle{proj_context_create(), nullptr};
  if (handle->context != nullptr && definition != nullptr) {
    proj_log_func(handle->context, nullptr, [](void*, int, const char*) {});
    const PROJ_FILE_API files = NoFiles();
    proj_context_set_fileapi(handle->context, &files, nullptr);
    handle->projection = proj_create(handle->context, WithEllipsoidForDatum(definition).c_str());
  }
  if (handle->projection != nullptr) return handle;
  pjFree(handle);
  return nullptr;
}

std::int32_t pjTransform(const ProjHandle* source, const ProjHandle* destination,
                         std::int32_t pointCount, std::int32_t pointOffset, double* x, double* y,
                         double*) {
  if (source == nullptr || destination == nullptr) return PROJ_ERR_OTHER_API_MISUSE;
  // A geographic definition has nothing to convert, and PROJ would wrap its longitudes
  // instead of refusing them.
  const bool inverse = proj_angular_output(source->projection, PJ_FWD) == 0;
  const bool forward = proj_angular_output(destination->projection, PJ_FWD) == 0;
  for (std::int32_t i = 0; i < pointCount; ++i, x += pointOffset, y += pointOffset) {
    double toX = *x;
    double toY = *y;
    std::int32_t error = 0;
    if (!IsConverted(toX, toY)) error = PROJ_ERR_COORD_TRANSFM_INVALID_COORD;
    if (error == 0 && inverse) error = Step(*source, PJ_INV, toX, toY);
    if (error == 0 && forward) error = Step(*destination, PJ_FWD, toX, toY);
    if (error != 0) return error;
    *x = toX;
    *y = toY;
  }
  return 0;
}

void pjFree(ProjHandle* handle) {
  if (handle == nullptr) return;
  proj_destroy(handle->projection);
  proj_context_destroy(handle->context);
  delete handle;
}

}  // namespace kestrin::geo
