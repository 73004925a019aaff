#pragma once

#include <string>

namespace kestrin {

/// A text (UTF-8) that two paths share when they name one file, as far as the names
/// themselves tell.
std::string TargetKey(const std::string& path);

}  // namespace kestrin
