#include <atomic>
#include <csignal>

#include "tools/exporter/interruption.h"

namespace kestrin::exporter {
namespace {

// A signal handler can reach nothing but what is static.
std::atomic<int> stopSignal{0};
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void NoteStop(int signal) { stopSignal.store(signal, std::memory_order_relaxed); }

void Note(int signal) {
  struct sigaction action {};
  // What the parent had ignored, such as Ctrl-C for a background job, stays so.
  if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
  action = {};
  action.sa_handler = NoteStop;
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  sigaction(signal, &action, nullptr);
}

}  // namespace

void HandleSignals() {
  Note(SIGINT);
  Note(SIGTERM);
  Note(SIGHUP);
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

int StopSignal() noexcept { return stopSignal.load(std::memory_order_relaxed); }

}  // namespace kestrin::exporter
