#pragma once

namespace kestrin::exporter {

/// How kestrin-export ends; a run stopped by a signal ends with kStopped plus the
/// signal's number.
enum ExitCode : int {
  kAllMade = 0,      ///< every asked set is there and complete
  kSomeNotMade = 1,  ///< each that is not was named on stderr
  kWrongUsage = 2,
  kStopped = 128,
};

}  // namespace kestrin::exporter
