#include "app/flow/defaultFolder.h"

#include <algorithm>

namespace kestrin::flow {

std::string DefaultJobFolder(const std::string& applicationFolder, platform::Drives& drives) {
  for (const platform::Drive& drive : drives.List()) {
    if (!drive.removable || !drive.ready) continue;
    std::string root = base::WithSeparator(drive.root);
    if (std::ranges::any_of(drives.FilesIn(root), exports::IsJobFile)) return root;
  }
  return applicationFolder;
}

}  // namespace kestrin::flow
