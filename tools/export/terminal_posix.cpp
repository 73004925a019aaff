#include <sys/ioctl.h>
#include <unistd.h>

#include "tools/export/terminal.h"

namespace kestrin {

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

int TerminalColumns() {
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
  return size.ws_col;
}

}  // namespace kestrin
