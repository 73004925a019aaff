#include "export/exportPaths.h"

#include <algorithm>

namespace kestrin {

std::string Without(std::string_view text, std::string_view part) {
  std::string result;
  for (std::size_t found; (found = text.find(part)) != std::string_view::npos;
       text.remove_prefix(found + part.size())) {
    result += text.substr(0, found);
  }
  return result += text;
}

SplitPath SplitAtLastSeparator(std::string_view path, char separator) {
  const std::size_t last = path.rfind(separator);
  if (last == std::string_view::npos) return {"", std::string(path)};
  return {std::string(path.substr(0, last + 1)), std::string(path.substr(last + 1))};
}

SplitPath JobNameOf(std::string_view jobPath, char separator) {
  return SplitAtLastSeparator(Without(jobPath, kJobExtension), separator);
}

std::string FileSafeName(std::string_view jobName) {
  std::string name(jobName);
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}

std::string WithSeparator(std::string path, char separator) {
  if (path.empty() || path.back() != separator) path += separator;
  return path;
}

std::string ExportFolder(std::string_view dataFolder, std::string_view fileSafeName,
                         std::string_view dateText, char separator) {
  return std::string(dataFolder).append(fileSafeName) + separator + std::string(dateText);
}

std::string SetName(std::string_view fileSafeName, std::string_view dateText) {
  return std::string(fileSafeName).append("_").append(dateText);
}

void MakePath(FileSystem& files, std::string_view path, char separator) {
  if (!path.empty() && path.back() == separator) path.remove_suffix(1);
  for (std::size_t at = path.find(separator); at != std::string_view::npos;
       at = path.find(separator, at + 1)) {
    // Nothing stands before the separator of a path from the root.
    if (at > 0) files.MakeFolder(std::string(path.substr(0, at)));
  }
  if (!path.empty()) files.MakeFolder(std::string(path));
}

}  // namespace kestrin
