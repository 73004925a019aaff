#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// What the benchmarks of files share.

namespace kestrin::bench {

/// A folder for a benchmark's files, removed at the end of the scope.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "kestrin-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make " + name);
    path_ = name;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

  /// Removes all files but those that end so.
  void KeepOnly(std::string_view ending) const {
    std::vector<std::filesystem::path> others;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      if (!entry.path().string().ends_with(ending)) others.push_back(entry.path());
    }
    for (const auto& path : others) std::filesystem::remove_all(path);
  }

 private:
  std::filesystem::path path_;
};

/// Seconds an action takes.
template <class Action>
double SecondsOf(Action action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The least a file can cost: its bytes in pieces of 256 KiB with write(2), then fsync.
inline void WritePlainly(const std::string& path, std::uint64_t size) {
  const std::string piece(std::size_t{1} << 18, 'x');
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file < 0) throw std::runtime_error("cannot create " + path);
  bool good = true;
  while (good && size > 0) {
    const ssize_t count = write(file, piece.data(), std::min<std::uint64_t>(size, piece.size()));
    good = count > 0;
    size -= static_cast<std::uint64_t>(good ? count : 0);
  }
  good = fsync(file) == 0 && good;
  good = close(file) == 0 && good;
  if (!good) throw std::runtime_error("cannot write " + path);
}

/// Sizes of a set's three files.
inline std::map<std::string, std::uint64_t> SizesOfSet(const std::string& base) {
  std::map<std::string, std::uint64_t> sizes;
  for (const char* extension : {".shp", ".shx", ".dbf"}) {
    sizes[extension] = std::filesystem::file_size(base + extension);
  }
  return sizes;
}

/// Files as large as a set's, written plainly.
inline void WriteSetPlainly(const std::map<std::string, std::uint64_t>& sizes,
                            const std::string& base) {
  for (const auto& [extension, size] : sizes) WritePlainly(base + extension, size);
}

/// Forgets the process's peak memory so far.
inline void ResetPeakMemory() { std::ofstream("/proc/self/clear_refs") << 5; }

/// The process's peak memory in MiB since the last reset; 0 where there is no telling.
inline double PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmHWM:", 0) == 0) return std::stod(line.substr(6)) / 1024;
  }
  return 0;
}

}  // namespace kestrin::bench
