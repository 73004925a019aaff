#pragma once

#include <string>
#include <string_view>

#include "base/paths.h"

/// The rules by which jobs, folders and sets are named.

namespace kestrin::exports {

inline constexpr std::string_view kJobExtension = ".sqlite";
inline constexpr std::string_view kShapeExtension = ".shp";
inline constexpr std::string_view kDataFolderName = "TrevaskData";

/// Whether a file is a job by its name, as the window's SELECT dialog filters them. Letters'
/// case counts where it does in names.
bool IsJobFile(const std::string& fileName);

/// A job's folder and name from the path of its file: every ".sqlite" taken out.
base::SplitPath JobNameOf(std::string_view jobPath);

/// The job name with every "." replaced by "_".
std::string FileSafeName(std::string_view jobName);

/// Where the sets of a job go: `dataFolder` (ending in a separator) + file-safe name
/// + separator + date text.
std::string ExportFolder(std::string_view dataFolder, std::string_view fileSafeName,
                         std::string_view dateText);

/// Base path of a job's sets under their default names, without kind suffix: export
/// folder + separator + file-safe name + "_" + date text.
std::string DefaultBasePath(std::string_view exportFolder, std::string_view fileSafeName,
                            std::string_view dateText);

}  // namespace kestrin::exports
