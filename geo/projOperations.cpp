#include "geo/projOperations.h"

#include <proj.h>

#include <string>

namespace kestrin::geo {
namespace {

/// The file system that PROJ is shown: one without a file. It would look for its
/// database and its configuration otherwise, wherever the environment says, though
/// a projection given by its parameters needs neither.
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
  files.seek_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, long long, int, void*) { return 0; };
  files.tell_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, void*) { return 0ULL; };
  files.close_cbk = [](PJ_CONTEXT*, PROJ_FILE_HANDLE*, void*) {};
  files.exists_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; };
  files.mkdir_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; };
  files.unlink_cbk = [](PJ_CONTEXT*, const char*, void*) { return 0; };
  files.rename_cbk = [](PJ_CONTEXT*, const char*, const char*, void*) { return 0; };
  return files;
}

}  // namespace

// A context of our own: what the process does with PROJ otherwise stays as it was,
// and nothing is printed, whatever PROJ_DEBUG says.
ProjOperations::ProjOperations() : context_(proj_context_create()) {
  if (context_ == nullptr) return;
  proj_log_func(context_, nullptr, [](void*, int, const char*) {});
  const PROJ_FILE_API files = NoFiles();
  proj_context_set_fileapi(context_, &files, nullptr);
}

ProjOperations::~ProjOperations() {
  for (PJ* operation : operations_) proj_destroy(operation);
  if (context_ != nullptr) proj_context_destroy(context_);
}

PJ* ProjOperations::Make(int zone) {
  if (context_ == nullptr) return nullptr;
  // The ellipsoid instead of the datum's name: with the name, PROJ goes through
  // WGS84, which costs time and moves points by up to 0.1 mm. The algorithm by name,
  // as PROJ otherwise asks its configuration for it.
  const std::string definition =
      "+proj=utm +zone=" + std::to_string(zone) + " +ellps=GRS80 +algo=poder_engsager";
  return proj_create(context_, definition.c_str());
}

}  // namespace kestrin::geo
