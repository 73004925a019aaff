#pragma once

#include <string>
#include <string_view>

namespace kestrin::base {

/// A job's text without the blanks before and behind it. Blanks are spaces alone.
inline std::string_view TrimmedBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The text without any occurrence of `part`, letters compared exactly.
std::string Without(std::string_view text, std::string_view part);

}  // namespace kestrin::base
