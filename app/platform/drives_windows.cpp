#include <windows.h>

#include <filesystem>
#include <system_error>

#include "app/platform/drives.h"

namespace kestrin::platform {
namespace {

namespace fs = std::filesystem;

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

fs::path Path(const std::string& utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

/// Whether a volume is there and its root can be reached.
bool IsReady(const wchar_t* root) {
  return GetVolumeInformationW(root, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 0) != 0 &&
         GetFileAttributesW(root) != INVALID_FILE_ATTRIBUTES;
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
      const wchar_t root[]{static_cast<wchar_t>(L'A' + i), L':', L'\\', L'\0'};
      const bool removable = GetDriveTypeW(root) == DRIVE_REMOVABLE;
      // A network drive that is away takes its time to answer: it is not asked.
      drives.push_back({Utf8(root), removable, removable && IsReady(root)});
    }
    return drives;
  }

  std::vector<std::string> FilesIn(const std::string& folder) override {
    std::vector<std::string> names;
    std::error_code failed;
    for (fs::directory_iterator entry(Path(folder), failed), end; !failed && entry != end;
         entry.increment(failed)) {
      std::error_code unreadable;
      if (entry->is_regular_file(unreadable)) names.push_back(Utf8(entry->path().filename()));
    }
    return names;
  }
};

}  // namespace

std::unique_ptr<Drives> NativeDrives(const std::string&) {
  return std::make_unique<WindowsDrives>();
}

}  // namespace kestrin::platform
