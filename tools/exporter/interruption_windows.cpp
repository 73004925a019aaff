#include <windows.h>

#include <atomic>
#include <csignal>

#include "tools/exporter/interruption.h"

namespace kestrin::exporter {
namespace {

// The system calls the handler with nothing but the event.
std::atomic<int> stopSignal{0};

/// The C library's number for what the console tells.
int SignalOf(DWORD event) {
  switch (event) {
    case CTRL_C_EVENT:
      return SIGINT;
    case CTRL_BREAK_EVENT:
      return SIGBREAK;
    default:  // the console is closed, or the user's session ends
      return SIGTERM;
  }
}

BOOL WINAPI NoteStop(DWORD event) {
  const int signal = SignalOf(event);
  if (stopSignal.exchange(signal) != 0) return FALSE;
  // A process is ended as soon as it has answered these; the run needs a moment to clear
  // away what it has begun. The system does not wait for ever.
  if (signal == SIGTERM) Sleep(INFINITE);
  return TRUE;
}

}  // namespace

void HandleSignals() {
  SetConsoleCtrlHandler(NoteStop, TRUE);
  // A stick that was pulled is an error to report, not a box that asks for it.
  SetErrorMode(SEM_FAILCRITICALERRORS);
}

int StopSignal() noexcept { return stopSignal.load(std::memory_order_relaxed); }

}  // namespace kestrin::exporter
