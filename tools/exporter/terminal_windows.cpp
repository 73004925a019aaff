#include <windows.h>

#include "tools/exporter/terminal.h"

namespace kestrin::exporter {

struct Terminal::State {
  UINT codePage = GetConsoleOutputCP();
  HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  bool redraws = false;
};

Terminal::Terminal() : state_(std::make_unique<State>()) {
  State& state = *state_;
  SetConsoleOutputCP(CP_UTF8);
  // Fails when stderr is no console.
  if (!GetConsoleMode(state.errors, &state.mode)) return;
  state.redraws =
      SetConsoleMode(state.errors, state.mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

Terminal::~Terminal() {
  if (state_->codePage != 0) SetConsoleOutputCP(state_->codePage);
  if (state_->redraws) SetConsoleMode(state_->errors, state_->mode);
}

bool Terminal::CanRedraw() const { return state_->redraws; }

int TerminalColumns() {
  CONSOLE_SCREEN_BUFFER_INFO screen;
  if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &screen)) return 80;
  return screen.srWindow.Right - screen.srWindow.Left + 1;
}

}  // namespace kestrin::exporter
