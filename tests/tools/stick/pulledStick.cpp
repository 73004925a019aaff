#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

/// Loaded ahead of a program (LD_PRELOAD), this pulls out a stick that it works on: from operation
/// KESTRIN_PULLED_AT on, counted from 1, every operation on what lies below the folder
/// KESTRIN_STICK fails as on a device that is gone.

namespace {

std::array<std::atomic<bool>, 1024> onStick{};  // by descriptor
std::atomic<long> operations{0};

bool IsOnStick(const char* path) {
  const char* const stick = std::getenv("KESTRIN_STICK");
  return stick != nullptr && std::strncmp(path, stick, std::strlen(stick)) == 0;
}

bool IsOnStick(int file) {
  return file >= 0 && static_cast<std::size_t>(file) < onStick.size() &&
         onStick[static_cast<std::size_t>(file)];
}

bool IsPulled() {
  const char* const at = std::getenv("KESTRIN_PULLED_AT");
  if (at == nullptr || ++operations < std::strtol(at, nullptr, 10)) return false;
  errno = EIO;
  return true;
}

/// The C library's own function of that name, unless the stick that `where` lies on is gone.
template <class Result, class Where, class... Arguments>
Result Do(const char* name, Where where, Arguments... arguments) {
  if (IsOnStick(where) && IsPulled()) return -1;
  return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name))(arguments...);
}

int Opened(const char* name, const char* path, int flags, mode_t mode) {
  const int file = Do<int>(name, path, path, flags, mode);
  if (file >= 0 && static_cast<std::size_t>(file) < onStick.size()) {
    onStick[static_cast<std::size_t>(file)] = IsOnStick(path);
  }
  return file;
}

}  // namespace

// The mode is there, if only as whatever the register holds.
extern "C" {
int open(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const mode_t mode = va_arg(more, mode_t);
  va_end(more);
  return Opened("open", path, flags, mode);
}
int open64(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const mode_t mode = va_arg(more, mode_t);
  va_end(more);
  return Opened("open64", path, flags, mode);
}
ssize_t read(int file, void* bytes, size_t size) {
  return Do<ssize_t>("read", file, file, bytes, size);
}
ssize_t pread(int file, void* bytes, size_t size, off_t offset) {
  return Do<ssize_t>("pread", file, file, bytes, size, offset);
}
ssize_t pread64(int file, void* bytes, size_t size, off64_t offset) {
  return Do<ssize_t>("pread64", file, file, bytes, size, offset);
}
ssize_t pwrite(int file, const void* bytes, size_t size, off_t offset) {
  return Do<ssize_t>("pwrite", file, file, bytes, size, offset);
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
  return Do<ssize_t>("pwrite64", file, file, bytes, size, offset);
}
int fsync(int file) { return Do<int>("fsync", file, file); }
int linkat(int from, const char* name, int to, const char* path, int flags) {
  return Do<int>("linkat", path, from, name, to, path, flags);
}
int rename(const char* from, const char* to) { return Do<int>("rename", to, from, to); }
int unlink(const char* path) { return Do<int>("unlink", path, path); }
int mkdir(const char* path, mode_t mode) { return Do<int>("mkdir", path, path, mode); }
}
