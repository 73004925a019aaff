#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "base/utf8Path.h"
#include "jobstore/opening/jobFile.h"

namespace kestrin::opening {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kPrivate = "kestrin-copy-";

/// Locks a folder of this user, by a file in it: whoever writes a set there locks the folder
/// itself. Null where somebody else has it, or it is somebody else's.
std::shared_ptr<const void> Use(const fs::path& folder) {
  struct stat status {};
  const bool own =
      lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid();
  if (!own) return {};
  const int number = open((folder / "in-use").c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC,
                          S_IRUSR | S_IWUSR);
  if (number < 0) return {};
  std::shared_ptr<const int> opened(new int(number), [](const int* owned) {
    close(*owned);
    delete owned;
  });
  if (flock(number, LOCK_EX | LOCK_NB) != 0) return {};
  return opened;
}

void RemoveAbandoned(const fs::path& root) {
  std::error_code error;
  for (fs::directory_iterator entry(root, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!entry->path().filename().native().starts_with(kPrivate)) continue;
    std::error_code ignored;
    if (Use(entry->path())) fs::remove_all(entry->path(), ignored);
  }
}

}  // namespace

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

std::int64_t WrittenAt(const fs::path& file) {
  std::error_code error;
  const auto time = fs::last_write_time(file, error);
  return error ? 0 : time.time_since_epoch().count();
}

bool CopyTo(const fs::path& from, const fs::path& to, std::error_code& error) {
  return fs::copy_file(from, to, error);
}

TemporaryFolder MakePrivateFolder(std::error_code& error) {
  const fs::path root = fs::temp_directory_path(error);
  if (error) return {};
  RemoveAbandoned(root);
  for (;;) {
    std::string name = (root / (std::string(kPrivate) + "XXXXXX")).string();
    if (mkdtemp(name.data()) == nullptr) break;
    auto use = Use(name);
    // Before it was in use, it may have been taken for abandoned.
    std::error_code gone;
    if (fs::exists(name, gone)) return {name, std::move(use)};
  }
  error.assign(errno, std::generic_category());
  return {};
}

}  // namespace kestrin::opening
