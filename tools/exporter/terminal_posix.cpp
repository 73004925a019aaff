#include <sys/ioctl.h>
#include <unistd.h>

#include "tools/exporter/terminal.h"

namespace kestrin::exporter {

// Nothing needs to be set here.
struct Terminal::State {};

Terminal::Terminal() = default;
Terminal::~Terminal() = default;

bool Terminal::CanRedraw() const { return isatty(STDERR_FILENO) != 0; }

int TerminalColumns() {
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
  return size.ws_col;
}

}  // namespace kestrin::exporter
