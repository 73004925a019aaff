#include "app/flow/defaultFolder.h"

#include <algorithm>
#include <string_view>

namespace kestrin {
namespace {

char Lower(char letter) { return letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter; }

/// Sticks do not tell the case of letters apart. What begins with a dot is what some
/// systems leave beside each file, under its name.
bool IsJobFile(std::string_view name) {
  if (name.starts_with('.') || name.size() < kJobExtension.size()) return false;
  const std::string_view extension = name.substr(name.size() - kJobExtension.size());
  return std::ranges::equal(extension, kJobExtension, {}, Lower);
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
