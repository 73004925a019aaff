#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

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

std::int64_t WrittenAt(const fs::path& file) {
  std::error_code error;
  const auto time = fs::last_write_time(file, error);
  return error ? 0 : time.time_since_epoch().count();
}

bool CopyTo(const fs::path& from, const fs::path& to, std::error_code& error) {
  return fs::copy_file(from, to, error);
}

fs::path MakeOwnFolder(const fs::path& root, const std::string& begin, std::error_code& error) {
  std::string name = (root / (begin + "XXXXXX")).string();
  if (mkdtemp(name.data()) != nullptr) return name;
  error.assign(errno, std::generic_category());
  return {};
}

std::shared_ptr<const void> UseFolder(const fs::path& folder) {
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

void RemoveUnused(const fs::path& folder) {
  const auto use = UseFolder(folder);
  if (!use) return;
  fs::path gone = folder;
  gone += ".gone";
  std::error_code error;
  fs::rename(folder, gone, error);
  if (!error) fs::remove_all(gone, error);
}

}  // namespace kestrin::opening
