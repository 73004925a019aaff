#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "app/flow/controls.h"
#include "app/platform/drives.h"
#include "base/fileSystem.h"
#include "geo/gpsTime.h"
#include "preview/picture.h"

namespace kestrin::flow {

/// What a file dialog is asked to show.
struct FileRequest {
  std::string title;
  std::string folder;    ///< where it starts
  std::string filter;    ///< description, "|", pattern
  std::string fileName;  ///< proposed name; empty when opening
};

/// Message boxes and file dialogs. Paths go in and out with the platform's own
/// separator. A box without a title bears the program's own.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// The file chosen; none when the dialog was cancelled.
  virtual std::optional<std::string> OpenFile(const FileRequest& request) = 0;
  /// Asks no overwrite question of its own.
  virtual std::optional<std::string> SaveFile(const FileRequest& request) = 0;

  /// A box with OK.
  virtual void ShowMessage(const std::string& text) = 0;
  /// A box with OK and an exclamation mark. Line breaks are CR LF.
  virtual void ShowWarning(const std::string& title, const std::string& text) = 0;
  /// A box with Yes and No; true for Yes.
  virtual bool AskYesNo(const std::string& text) = 0;

  /// The user's documents, empty where there are none: the data folder lies there when the
  /// program's own folder cannot be written, and a save dialog starts there when the export
  /// folder cannot be made.
  virtual std::string DocumentsFolder() = 0;
};

/// The window's event loop. Both calls may throw RunCancelled when the window is to
/// close.
class Events {
 public:
  virtual ~Events() = default;

  /// Lets all pending events run.
  virtual void DoEvents() = 0;
  /// The same from inside a row loop: next to nothing most of the time.
  virtual void Yield() = 0;
  /// The same where an exception may not pass; a stop that was asked for waits for
  /// the next call of the others.
  virtual void YieldWithoutThrow() noexcept {}
};

/// How the user's language writes dates.
class DateStyle {
 public:
  virtual ~DateStyle() = default;

  virtual geo::MonthNames AbbreviatedMonths() = 0;
  virtual std::string ShortDate(std::chrono::year_month_day date) = 0;
};

/// The sheet that "PRINT" fills, prints and discards. Every call may throw; the
/// next one is made all the same.
class JobSheet {
 public:
  virtual ~JobSheet() = default;

  virtual void Load() = 0;
  virtual void ClearPicture() = 0;
  /// Takes the image that the window's preview now shows.
  virtual void CopyPreviewPicture() = 0;
  virtual void SetJobName(const std::string& name) = 0;
  virtual void SetLastModified(const std::string& date) = 0;
  /// One page on the default printer.
  virtual void Print() = 0;
  virtual void Unload() = 0;
};

/// Everything the procedures reach outside of themselves. All must outlive them.
struct Ports {
  Controls& controls;
  Dialogs& dialogs;
  Events& events;
  preview::Picture& picture;
  base::FileSystem& files;
  platform::Drives& drives;
  DateStyle& dates;
  JobSheet& sheet;
};

}  // namespace kestrin::flow
