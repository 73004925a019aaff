#include <geos_c.h>
#include <gnu/libc-version.h>
#include <proj.h>
#include <sqlite3.h>
#include <sys/utsname.h>

#include <cstdio>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>

#include "base/fileSystem.h"
#include "bench/blankPicture.h"
#include "bench/silentHost.h"
#include "export/exportKinds.h"
#include "preview/previewExtent.h"
#include "preview/renderers.h"

/// What bench/guard counts the instructions of: each operation once, on one thread, over a
/// small job, called by way of one function that callgrind knows by its name. Prints on what
/// the counts depend besides the code, then the operations in the order of the calls.

/// The system's chance, by which GEOS shuffles points: here the same in every run.
std::random_device::result_type std::random_device::_M_getval() {
  static result_type number = 0;
  return ++number;
}

namespace kestrin {
namespace {

extern "C" {
[[gnu::noinline]] void Guarded(const std::function<void()>& operation) {
  operation();
  // Else the call above would be a jump, after which there is no coming back to here.
  asm volatile("");
}
}

void Guard(const std::string& name, const std::function<void()>& operation) {
  Guarded(operation);
  std::printf("%s\n", name.c_str());
}

void PrintCircumstances() {
  utsname machine{};
  uname(&machine);
  std::printf("%s, compiler %s, glibc %s, SQLite %s, PROJ %s, GEOS %s\n", machine.machine,
              __VERSION__, gnu_get_libc_version(), sqlite3_libversion(), proj_info().version,
              GEOSversion());
}

void GuardExport(const std::string& name, const exports::ExportKind& kind, const std::string& job) {
  bench::SilentHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{host, *files, {}};
  Guard(name, [&] {
    if (!kind.procedure(job + std::string(kind.suffix), job, run).made) {
      throw std::runtime_error(name + ": no set made");
    }
  });
}

void GuardPreviews(const std::string& job) {
  bench::SilentHost host;
  bench::BlankPicture picture;
  preview::PreviewState state;
  Guard("extent", [&] { preview::FindPreviewExtent(job, state, picture, host); });
  if (state.jobPath.empty()) throw std::runtime_error("no extent found");
  for (int kind = 0; kind < exports::kKindCount; ++kind) {
    Guard("preview of " + std::string(exports::kExportKinds[static_cast<std::size_t>(kind)].name),
          [&] { preview::DrawPreview(kind, state, picture, host); });
  }
}

}  // namespace
}  // namespace kestrin

int main(int argc, char** argv) {
  using namespace kestrin;
  if (argc != 3) {
    std::fprintf(stderr, "usage: kestrin-guard JOB FOLDING-JOB\n");
    return 2;
  }
  PrintCircumstances();
  for (const auto& kind : exports::kExportKinds) GuardExport(std::string(kind.name), kind, argv[1]);
  GuardExport("poly that folds", exports::kExportKinds[2], argv[2]);
  for (const auto& kind : exports::kNamedKinds) GuardExport(std::string(kind.name), kind, argv[1]);
  GuardPreviews(argv[1]);
}
