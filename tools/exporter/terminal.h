#pragma once

#include <memory>

namespace kestrin::exporter {

/// The terminal behind stdout and stderr for the length of a scope: takes text in UTF-8,
/// and on stderr the control sequences a line is drawn anew with. What it was set to
/// before comes back afterwards, since it outlives the program.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// Whether stderr is a terminal on which lines can be drawn anew.
  bool CanRedraw() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// Columns of the terminal behind stderr; 80 when it does not say.
int TerminalColumns();

}  // namespace kestrin::exporter
