#include "export/setNames.h"

#include <algorithm>

#include "base/text.h"

namespace kestrin::exports {
base::SplitPath JobNameOf(std::string_view jobPath, char separator) {
  return base::SplitAtLastSeparator(base::Without(jobPath, kJobExtension), separator);
}

std::string FileSafeName(std::string_view jobName) {
  std::string name(jobName);
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}

std::string ExportFolder(std::string_view dataFolder, std::string_view fileSafeName,
                         std::string_view dateText, char separator) {
  return std::string(dataFolder).append(fileSafeName) + separator + std::string(dateText);
}

std::string SetName(std::string_view fileSafeName, std::string_view dateText) {
  return std::string(fileSafeName).append("_").append(dateText);
}

}  // namespace kestrin::exports
