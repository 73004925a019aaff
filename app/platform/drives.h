#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kestrin::platform {

/// A drive of the system, or what stands for one: a mounted volume.
struct Drive {
  std::string root;        ///< path; may lack its last separator
  bool removable = false;  ///< optical drives are not
  bool ready = false;      ///< looked for on removable drives only
};

/// The system's drives and what lies in their roots. What cannot be read is left
/// out; neither call throws.
class Drives {
 public:
  virtual ~Drives() = default;

  /// In the system's own order.
  virtual std::vector<Drive> List() = 0;

  /// Names of the files directly in a folder, folders left out; empty when it
  /// cannot be read.
  virtual std::vector<std::string> FilesIn(const std::string& folder);
};

/// The real drives. `systemRoot` stands before "/proc" and "/sys" where those tell
/// of them; the mounted volumes' own paths are taken as they are. On Windows the system
/// asks the user for no missing medium any more, which is for the whole process.
std::unique_ptr<Drives> NativeDrives(const std::string& systemRoot = "");

}  // namespace kestrin::platform
