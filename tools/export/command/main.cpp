#include <cstdio>
#include <exception>

#include "jobstore/runHost.h"
#include "tools/export/commandLine.h"
#include "tools/export/exitCode.h"
#include "tools/export/exportCommand.h"
#include "tools/export/interruption.h"
#include "tools/export/terminal.h"

int main(int argc, char** argv) {
  using namespace kestrin;
  try {
    const Terminal terminal;
    ExportOptions options;
    if (const auto code = ParseCommandLine(argc, argv, options)) return *code;
    HandleSignals();
    Console console(stdout, stderr, !options.quiet && terminal.CanRedraw(), !options.quiet);
    return RunExports(options, console);
  } catch (const RunCancelled&) {
    std::fputs("kestrin-export: stopped\n", stderr);
    return kStopped + StopSignal();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kestrin-export: %s\n", error.what());
    return kSomeNotMade;
  }
}
