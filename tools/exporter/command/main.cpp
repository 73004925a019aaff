#include <cstdio>
#include <exception>

#include "base/runHost.h"
#include "tools/exporter/commandLine.h"
#include "tools/exporter/exitCode.h"
#include "tools/exporter/exportCommand.h"
#include "tools/exporter/interruption.h"
#include "tools/exporter/terminal.h"

namespace base = kestrin::base;
namespace exporter = kestrin::exporter;

int main(int argc, char** argv) {
  try {
    const exporter::Terminal terminal;
    exporter::ExportOptions options;
    if (const auto code = exporter::ParseCommandLine(argc, argv, options)) return *code;
    exporter::HandleSignals();
    exporter::Console console(stdout, stderr, !options.quiet && terminal.CanRedraw(),
                              !options.quiet);
    return exporter::RunExports(options, console);
  } catch (const base::RunCancelled&) {
    std::fputs("kestrin-export: stopped\n", stderr);
    return exporter::kStopped + exporter::StopSignal();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kestrin-export: %s\n", error.what());
    return exporter::kSomeNotMade;
  }
}
