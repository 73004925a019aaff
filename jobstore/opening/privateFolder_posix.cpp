#include <cerrno>
#include <cstdlib>
#include <string>

#include "jobstore/opening/privateFolder.h"

namespace kestrin::opening {
namespace fs = std::filesystem;

fs::path MakePrivateFolder(std::error_code& error) {
  const fs::path root = fs::temp_directory_path(error);
  if (error) return {};
  std::string name = (root / "kestrin-job-XXXXXX").string();
  if (mkdtemp(name.data()) != nullptr) return name;
  error.assign(errno, std::generic_category());
  return {};
}

}  // namespace kestrin::opening
