#include "jobstore/privateCopy.h"

#include <random>
#include <string>

#include "jobstore/superJournal.h"

#ifndef _WIN32
#include <cerrno>
#include <cstdlib>
#endif

namespace kestrin {
namespace fs = std::filesystem;
namespace {

/// A new folder in the system's temporary one; empty, with the reason in `error`,
/// when none can be made.
fs::path MakeFolder(std::error_code& error) {
  const fs::path root = fs::temp_directory_path(error);
  if (error) return {};
#ifdef _WIN32
  // The temporary folder is the user's own there.
  std::random_device random;
  for (int attempt = 0; attempt < 100; ++attempt) {
    const fs::path folder = root / ("kestrin-job-" + std::to_string(random()));
    if (fs::create_directory(folder, error)) return folder;
    if (error) return {};
  }
  error = std::make_error_code(std::errc::file_exists);
  return {};
#else
  std::string name = (root / "kestrin-job-XXXXXX").string();
  if (mkdtemp(name.data()) != nullptr) return name;
  error.assign(errno, std::generic_category());
  return {};
#endif
}

}  // namespace

PrivateCopy::PrivateCopy(const fs::path& job) {
  folder_ = MakeFolder(error_);
  if (error_) return;
  Copy(job, "");
  for (const char* suffix : {"-journal", "-wal"}) {
    if (!error_ && SizeOf(Beside(job, suffix)) > 0) Copy(job, suffix);
  }
  if (!error_) DropSuperJournal(Beside(Path(), "-journal"));
}

PrivateCopy::~PrivateCopy() {
  std::error_code ignored;
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

void PrivateCopy::Copy(const fs::path& job, const char* suffix) {
  const fs::path copy = Beside(Path(), suffix);
  if (!fs::copy_file(Beside(job, suffix), copy, error_)) return;
  // A read-only medium hands its permissions on to the copy.
  fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, error_);
}

fs::path Beside(const fs::path& job, const char* suffix) {
  fs::path path = job;
  path += suffix;
  return path;
}

std::uintmax_t SizeOf(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return 0;
  const std::uintmax_t size = fs::file_size(file, error);
  return error ? 0 : size;
}

}  // namespace kestrin
