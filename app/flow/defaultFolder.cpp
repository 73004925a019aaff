#include "app/flow/defaultFolder.h"

#include <algorithm>

#include "export/nameKey.h"

namespace kestrin {
namespace {

/// Letters' case counts where it does in names.
bool IsJobFile(const std::string& name) {
  return NameKey(name).ends_with(NameKey(std::string(kJobExtension)));
}

}  // namespace

std::string DefaultJobFolder(const std::string& applicationFolder, Drives& drives, char separator) {
  for (const Drive& drive : drives.List()) {
    if (!drive.removable || !drive.ready) continue;
    std::string root = WithSeparator(drive.root, separator);
    if (std::ranges::any_of(drives.FilesIn(root), IsJobFile)) return root;
  }
  return applicationFolder;
}

}  // namespace kestrin
