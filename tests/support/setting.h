#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace kestrin::test {

/// Sets an environment variable for the length of a scope.
class Setting {
 public:
  Setting(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    Put(value);
  }
  ~Setting() { Put(before_); }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

 private:
  void Put(const std::optional<std::string>& value) const {
#ifdef _WIN32
    // An empty value is the same as none there.
    _putenv_s(name_, value.value_or("").c_str());
#else
    if (value) {
      setenv(name_, value->c_str(), 1);
    } else {
      unsetenv(name_);
    }
#endif
  }

  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace kestrin::test
