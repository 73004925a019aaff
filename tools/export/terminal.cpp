#include "tools/export/terminal.h"

#ifdef _WIN32
#include <io.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace kestrin {

#ifdef _WIN32

bool IsTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }

int TerminalColumns() { return 80; }

#else

bool IsTerminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

int TerminalColumns() {
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
  return size.ws_col;
}

#endif

}  // namespace kestrin
