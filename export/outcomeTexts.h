#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "base/fileSystem.h"
#include "export/exportRun.h"

/// What the caller of an export tells the user of its end: the window in a box, the terminal on
/// a line, in the same words. (What an export tells through its host: export/exportRun.h.)

namespace kestrin::exports {

/// Of a job without a reference location or without GPS rows.
inline constexpr const char* kNothingToExport = "No set made: nothing to export";

/// Of an export that a run-time error ended; `kind` is ExportKind::name.
std::string NotMadeText(std::string_view kind, const std::exception& error);

/// Of a file of a set or a folder that could not be written.
std::string NotWrittenText(const base::FileError& error);

/// How the next one begins.
inline constexpr std::string_view kNotReadToEnd = "The job could not be read to its end: ";

/// Of rows that ended with the library's error code instead of their end. `total` is how many
/// rows the job has; 0 when it could not be told, as a job that is damaged cannot be counted
/// either.
std::string NotReadToEndText(const ExportOutcome& outcome, std::int64_t total);

}  // namespace kestrin::exports
