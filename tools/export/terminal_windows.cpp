#include <io.h>
#include <windows.h>

#include "tools/export/terminal.h"

namespace kestrin {

bool IsTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }

int TerminalColumns() {
  CONSOLE_SCREEN_BUFFER_INFO screen;
  if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &screen)) return 80;
  return screen.srWindow.Right - screen.srWindow.Left + 1;
}

}  // namespace kestrin
