#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "app/flow/exportCommands.h"
#include "geo/gpsTime.h"
#include "preview/previewExtent.h"

namespace kestrin::flow {

/// How far the walk over a job's rows has come; drives the progress bars.
struct Progress {
  std::int32_t count = 0;
  std::int32_t total = 0;
  /// The next preview walks the rows twice: extent, then drawing.
  bool twoPass = false;
};

/// The date that stands for none: 30 December 1899.
inline constexpr geo::LocalDateTime kZeroDate{std::chrono::local_days{
    std::chrono::year{1899} / std::chrono::December / std::chrono::day{30}}};

/// All that the window knows while the program runs; nothing of it is saved.
/// Folders end in a separator. The extension of jobs and the suffixes of the kinds
/// are constants (export/setNames.h, export/exportKinds.h).
struct WindowState {
  std::string applicationFolder;
  std::string dataFolder;
  ExportState job;
  /// The current job path and what its preview shows. The path is empty while no
  /// job is loaded.
  preview::PreviewState preview;
  /// Local date and time of the job's latest GPS row.
  geo::LocalDateTime lastGpsTime = kZeroDate;
  Progress progress;
  /// Minutes east of Greenwich by the plain zone, daylight saving ignored.
  std::int32_t timeZoneOffset = 0;
  float screenWidth = 0;          ///< pixels
  std::int16_t screenHeight = 0;  ///< pixels
};

}  // namespace kestrin::flow
