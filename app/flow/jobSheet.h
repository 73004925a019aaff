#pragma once

#include "app/flow/ports.h"
#include "app/flow/windowState.h"

namespace kestrin::flow {

/// Fills, prints and discards the job sheet: the job's name as the window shows it,
/// the date of its last GPS time as a short date, the preview as it is drawn. A step
/// that fails is skipped and the next one follows; nothing is said.
void PrintJobSheet(const WindowState& state, const Ports& ports);

}  // namespace kestrin::flow
