// net-acres BASE JOB: the ground that a job has really covered, as the set BASE.shp and in
// words. Built against an installed Kestrin:
//
//   cmake -S examples/net-acres -B build/net-acres && cmake --build build/net-acres

#include <cstdio>

#include "base/fileSystem.h"
#include "export/net/netExport.h"

namespace {

/// Nobody waits for anything else here, and failures go to standard error.
class Terminal : public kestrin::base::RunHost {
 public:
  void CountRow() override {}
  void Yield() override {}
  void ShowMessage(const std::string& text) override {
    std::fprintf(stderr, "net-acres: %s\n", text.c_str());
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("Usage: net-acres BASE JOB\n", stderr);
    return 2;
  }
  const auto files = kestrin::base::NativeFileSystem();
  Terminal terminal;
  kestrin::exports::ExportRun run{terminal, *files, {}};
  try {
    const auto outcome = kestrin::net::ExportNetShape(argv[1], argv[2], run);
    if (!outcome.made) return 1;
    std::printf("%s\n", outcome.summary.c_str());
    return 0;
  } catch (const kestrin::base::FileError& error) {
    std::fprintf(stderr, "net-acres: %s\n", error.what());
    return 1;
  }
}
