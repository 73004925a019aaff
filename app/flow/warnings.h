#pragma once

#include <string>

#include "app/flow/programVersion.h"

namespace kestrin::flow {

/// The title of every warning.
inline constexpr const char* kWarningTitle = "Kestrin Warning";

/// Says that nothing is known of a job's format. Line breaks are CR LF here and
/// below.
std::string UnknownFormatWarning(const std::string& jobVersion);

/// Says that a job is newer than this program can know.
std::string NewerJobWarning(const ProgramVersion& program, const std::string& jobVersion);

}  // namespace kestrin::flow
