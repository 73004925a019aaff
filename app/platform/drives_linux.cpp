#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string_view>
#include <system_error>
#include <unordered_set>

#include "app/platform/drives.h"

namespace kestrin::platform {
namespace {

namespace fs = std::filesystem;

/// The kernel's major number of optical drives.
constexpr std::string_view kOpticalDrives = "11:";

/// A path as the kernel's tables write it: "\040" and the like stand for blanks,
/// tabs, line ends and backslashes.
std::string Unescaped(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool octal = text[i] == '\\' && i + 3 < text.size() &&
                       text.find_first_not_of("01234567", i + 1) >= i + 4;
    if (octal) {
      result += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 +
                                  (text[i + 3] - '0'));
      i += 3;
    } else {
      result += text[i];
    }
  }
  return result;
}

/// A line of the table of mounts: "id parent major:minor root mount-point ...".
struct Mount {
  std::string device;  ///< major:minor
  std::string point;
};

std::optional<Mount> MountOf(const std::string& line) {
  std::istringstream words(line);
  std::string id;
  std::string parent;
  std::string root;
  Mount mount;
  if (!(words >> id >> parent >> mount.device >> root >> mount.point)) return std::nullopt;
  mount.point = Unescaped(mount.point);
  return mount;
}

bool SaysOne(const fs::path& file) {
  std::ifstream in(file);
  return in.get() == '1';
}

class LinuxDrives final : public Drives {
 public:
  explicit LinuxDrives(std::string systemRoot) : systemRoot_(std::move(systemRoot)) {}

  std::vector<Drive> List() override {
    std::vector<Drive> drives;
    std::unordered_set<std::string> seen;
    std::ifstream mounts(systemRoot_ + "/proc/self/mountinfo");
    for (std::string line; std::getline(mounts, line);) {
      const auto mount = MountOf(line);
      if (!mount || !seen.insert(mount->point).second) continue;
      const bool removable = IsRemovable(mount->device);
      // A network volume that is away would not answer: it is not asked.
      std::error_code failed;
      const bool ready = removable && fs::is_directory(mount->point, failed);
      drives.push_back({mount->point, removable, ready});
    }
    return drives;
  }

 private:
  /// A partition's disk is the folder it lies in; a stick may not say that it is
  /// removable, but then it sits on USB. Optical drives say that they are: only
  /// their discs can be taken out, and no console writes a job on one.
  bool IsRemovable(const std::string& device) const {
    if (device.starts_with(kOpticalDrives)) return false;
    std::error_code failed;
    const fs::path block = fs::canonical(systemRoot_ + "/sys/dev/block/" + device, failed);
    if (failed) return false;
    const fs::path disk = fs::exists(block / "partition", failed) ? block.parent_path() : block;
    if (SaysOne(disk / "removable")) return true;
    return std::any_of(disk.begin(), disk.end(),
                       [](const fs::path& part) { return part.string().starts_with("usb"); });
  }

  std::string systemRoot_;
};

}  // namespace

std::unique_ptr<Drives> NativeDrives(const std::string& systemRoot) {
  return std::make_unique<LinuxDrives>(systemRoot);
}

}  // namespace kestrin::platform
