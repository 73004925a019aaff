#include <cerrno>
#include <cstdlib>

#include "base/utf8Path.h"
#include "jobstore/opening/jobFile.h"

namespace kestrin::opening {
namespace fs = std::filesystem;

fs::path JobFile(const std::string& path) {
  std::error_code error;
  fs::path job = fs::canonical(base::PathOf(path), error);
  if (error || !fs::is_regular_file(job, error)) return {};
  return job;
}

std::string LibraryText(const fs::path& path) { return base::Utf8Of(path); }

std::uintmax_t SizeOf(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return 0;
  const std::uintmax_t size = fs::file_size(file, error);
  return error ? 0 : size;
}

bool CopyTo(const fs::path& from, const fs::path& to, std::error_code& error) {
  return fs::copy_file(from, to, error);
}

fs::path MakePrivateFolder(std::error_code& error) {
  const fs::path root = fs::temp_directory_path(error);
  if (error) return {};
  std::string name = (root / "kestrin-job-XXXXXX").string();
  if (mkdtemp(name.data()) != nullptr) return name;
  error.assign(errno, std::generic_category());
  return {};
}

}  // namespace kestrin::opening
