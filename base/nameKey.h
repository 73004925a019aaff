#pragma once

#include <string>

namespace kestrin::base {

/// A text (UTF-8) that two names or paths share when the system takes them for one, as far
/// as the texts themselves tell.
std::string NameKey(const std::string& name);

}  // namespace kestrin::base
