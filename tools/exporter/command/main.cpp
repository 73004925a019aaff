#include <cstdio>
#include <cstdlib>
#include <exception>

#include "base/runHost.h"
#include "tools/exporter/commandLine.h"
#include "tools/exporter/exitCode.h"
#include "tools/exporter/exportCommand.h"
#include "tools/exporter/interruption.h"
#include "tools/exporter/terminal.h"

namespace base = kestrin::base;
namespace exporter = kestrin::exporter;

namespace {

/// By the convention of no-color.org, as far as it goes without an option.
bool ColourIsWanted() {
  // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread runs yet.
  const char* const refused = std::getenv("NO_COLOR");
  return refused == nullptr || *refused == '\0';
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const exporter::Terminal terminal;
    exporter::ExportOptions options;
    if (const auto code = exporter::ParseCommandLine(argc, argv, options)) return *code;
    exporter::HandleSignals();
    const bool redraws = terminal.CanRedraw();
    exporter::Console console(
        stdout, stderr, {.bar = redraws && !options.quiet, .colour = redraws && ColourIsWanted()});
    return exporter::RunExports(options, console);
  } catch (const base::RunCancelled&) {
    std::fputs("kestrin-export: stopped\n", stderr);
    return exporter::kStopped + exporter::StopSignal();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kestrin-export: %s\n", error.what());
    return exporter::kSomeNotMade;
  }
}
