#pragma once

#include <filesystem>
#include <system_error>

#ifndef _WIN32
#include <unistd.h>

#include <cstdlib>
#endif

namespace kestrin::test {

#ifdef _WIN32

/// The mark "read-only" binds everybody there.
class OrdinaryUser {
 public:
  bool CanTell(const std::filesystem::path& file) const { return std::filesystem::exists(file); }
};

#else

/// Drops the superuser's rights, which no permission binds, for its scope; of no
/// effect for anybody else.
class OrdinaryUser {
 public:
  OrdinaryUser() : wasSuperuser_(geteuid() == 0) {
    constexpr uid_t kNobody = 65534;
    if (wasSuperuser_) bound_ = seteuid(kNobody) == 0;
  }
  ~OrdinaryUser() {
    if (wasSuperuser_ && bound_ && seteuid(0) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  /// Whether permissions bind now, and the file can be reached at all.
  bool CanTell(const std::filesystem::path& file) const {
    std::error_code error;
    return bound_ && std::filesystem::exists(file, error);
  }

 private:
  bool wasSuperuser_;
  bool bound_ = true;
};

#endif

}  // namespace kestrin::test
