#pragma once

namespace kestrin::exporter {

/// Prepares the process for what the system may send it. From now on Ctrl-C and the
/// requests to end are only noted, once: a second one ends the process at once. A
/// closed pipe, a file-size limit and a pulled stick become ordinary errors.
void HandleSignals();

/// The signal that asked to stop; 0 when none did. Costs next to nothing; any thread.
int StopSignal() noexcept;

}  // namespace kestrin::exporter
