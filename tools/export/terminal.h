#pragma once

#include <cstdio>

namespace kestrin {

/// Whether the stream is a terminal.
bool IsTerminal(std::FILE* stream);

/// Columns of the terminal behind stderr; 80 when it does not say.
int TerminalColumns();

}  // namespace kestrin
