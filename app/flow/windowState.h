#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "export/exportKinds.h"
#include "export/setNames.h"
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

/// What the window knows of its job, as far as exporting goes.
struct ExportState {
  std::string jobFolder;     ///< folder last used by the job dialog, ending in a separator
  std::string jobName;       ///< without folder and ".sqlite"; empty while there is none
  std::string fileSafeName;  ///< the job name with every "." replaced by "_"
  std::string dateText;      ///< day of the job's last GPS time, such as "2006Jun15"
  std::string exportFolder;  ///< data folder + file-safe name + separator + date text
  /// Whether the set of the default name exists, per kind.
  std::array<bool, exports::kKindCount> shapeExists{};
  /// False while an export command runs: a click on either then does nothing.
  bool idle = true;

  /// Path of the job file.
  std::string JobPath() const { return jobFolder + jobName + std::string(exports::kJobExtension); }
  /// Path of a set under its default name, without extension; `suffix` is its kind's.
  std::string DefaultBasePath(std::string_view suffix) const {
    return exports::DefaultBasePath(exportFolder, fileSafeName, dateText).append(suffix);
  }
};

/// All that the window knows while the program runs; nothing of it is saved.
/// Folders end in a separator, but the export folder. The extension of jobs and the
/// suffixes of the kinds are constants (export/setNames.h, export/exportKinds.h).
struct WindowState {
  std::string applicationFolder;
  std::string dataFolder;  ///< where export folders lie (app/flow/dataFolder.h)
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
