#include "app/flow/defaultFolder.h"

#include <algorithm>

namespace kestrin {
namespace {

bool HasJobFile(Drives& drives, const std::string& root) {
  return std::ranges::any_of(drives.FilesIn(root),
                             [](const std::string& name) { return name.ends_with(kJobExtension); });
}

}  // namespace

std::string DefaultJobFolder(const std::string& applicationFolder, Drives& drives, char separator) {
  for (const Drive& drive : drives.List()) {
    if (!drive.removable || !drive.ready) continue;
    std::string root = WithSeparator(drive.root, separator);
    if (HasJobFile(drives, root)) return root;
  }
  return applicationFolder;
}

}  // namespace kestrin
