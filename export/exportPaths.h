#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "export/fileSystem.h"

/// The rules by which jobs, folders and sets are named: pure functions of the
/// platform's path separator ('\\' on Windows, '/' elsewhere).

namespace kestrin {

inline constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

inline constexpr std::string_view kJobExtension = ".sqlite";
inline constexpr std::string_view kShapeExtension = ".shp";
inline constexpr std::string_view kDataFolderName = "TrevaskData";

/// The text without any occurrence of `part`, letters compared exactly.
std::string Without(std::string_view text, std::string_view part);

/// A path cut behind its last separator; the folder is empty when there is none.
struct SplitPath {
  std::string folder;  ///< ends in the separator
  std::string name;
};
SplitPath SplitAtLastSeparator(std::string_view path, char separator = kSeparator);

/// A job's folder and name from the path of its file: every ".sqlite" taken out.
SplitPath JobNameOf(std::string_view jobPath, char separator = kSeparator);

/// The job name with every "." replaced by "_".
std::string FileSafeName(std::string_view jobName);

/// The path, ending in a separator.
std::string WithSeparator(std::string path, char separator = kSeparator);

/// Where the sets of a job go: `dataFolder` (ending in a separator) + file-safe name
/// + separator + date text.
std::string ExportFolder(std::string_view dataFolder, std::string_view fileSafeName,
                         std::string_view dateText, char separator = kSeparator);

/// File name of a job's sets without kind suffix: file-safe name + "_" + date text.
std::string SetName(std::string_view fileSafeName, std::string_view dateText);

/// Creates every missing folder of a path, from the left; one trailing separator is
/// ignored, and so are the server and share of a network path. Throws FileError.
void MakePath(FileSystem& files, std::string_view path, char separator = kSeparator);

}  // namespace kestrin
