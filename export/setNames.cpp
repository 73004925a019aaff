#include "export/setNames.h"

#include <algorithm>

#include "base/nameKey.h"
#include "base/text.h"

namespace kestrin::exports {

bool IsJobFile(const std::string& fileName) {
  return base::NameKey(fileName).ends_with(base::NameKey(std::string(kJobExtension)));
}

base::SplitPath JobNameOf(std::string_view jobPath) {
  return base::SplitAtLastSeparator(base::Without(jobPath, kJobExtension));
}

std::string FileSafeName(std::string_view jobName) {
  std::string name(jobName);
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}

std::string ExportFolder(std::string_view dataFolder, std::string_view fileSafeName,
                         std::string_view dateText) {
  return std::string(dataFolder).append(fileSafeName) + base::kSeparator + std::string(dateText);
}

std::string DefaultBasePath(std::string_view exportFolder, std::string_view fileSafeName,
                            std::string_view dateText) {
  std::string path = std::string(exportFolder) + base::kSeparator;
  return path.append(fileSafeName).append("_").append(dateText);
}

}  // namespace kestrin::exports
