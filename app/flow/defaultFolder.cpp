#include "app/flow/defaultFolder.h"

#include <algorithm>

#include "base/nameKey.h"

namespace kestrin::flow {
namespace {

/// Letters' case counts where it does in names.
bool IsJobFile(const std::string& name) {
  return base::NameKey(name).ends_with(base::NameKey(std::string(exports::kJobExtension)));
}

}  // namespace

std::string DefaultJobFolder(const std::string& applicationFolder, platform::Drives& drives) {
  for (const platform::Drive& drive : drives.List()) {
    if (!drive.removable || !drive.ready) continue;
    std::string root = base::WithSeparator(drive.root);
    if (std::ranges::any_of(drives.FilesIn(root), IsJobFile)) return root;
  }
  return applicationFolder;
}

}  // namespace kestrin::flow
