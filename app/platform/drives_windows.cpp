#include <windows.h>

#include "app/platform/drives.h"

namespace kestrin::platform {
namespace {

/// Whether a volume is there and its root can be reached.
bool IsReady(const char* root) {
  return GetVolumeInformationA(root, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 0) != 0 &&
         GetFileAttributesA(root) != INVALID_FILE_ATTRIBUTES;
}

class WindowsDrives final : public Drives {
 public:
  // A drive without its medium is told to the program, here and wherever a stick is pulled
  // later, and not to the user in a box of the system's own.
  WindowsDrives() { SetErrorMode(SEM_FAILCRITICALERRORS); }

  std::vector<Drive> List() override {
    std::vector<Drive> drives;
    const DWORD letters = GetLogicalDrives();
    for (int i = 0; i < 26; ++i) {
      if ((letters >> i & 1U) == 0) continue;
      const std::string root{static_cast<char>('A' + i), ':', '\\'};
      const bool removable = GetDriveTypeA(root.c_str()) == DRIVE_REMOVABLE;
      // A network drive that is away takes its time to answer: it is not asked.
      drives.push_back({root, removable, removable && IsReady(root.c_str())});
    }
    return drives;
  }
};

}  // namespace

std::unique_ptr<Drives> NativeDrives(const std::string&) {
  return std::make_unique<WindowsDrives>();
}

}  // namespace kestrin::platform
