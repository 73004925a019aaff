#include <random>
#include <string>

#include "jobstore/opening/privateFolder.h"

namespace kestrin::opening {
namespace fs = std::filesystem;

// The temporary folder is the user's own here.
fs::path MakePrivateFolder(std::error_code& error) {
  const fs::path root = fs::temp_directory_path(error);
  if (error) return {};
  std::random_device random;
  for (int attempt = 0; attempt < 100; ++attempt) {
    const fs::path folder = root / ("kestrin-job-" + std::to_string(random()));
    if (fs::create_directory(folder, error)) return folder;
    if (error) return {};
  }
  error = std::make_error_code(std::errc::file_exists);
  return {};
}

}  // namespace kestrin::opening
