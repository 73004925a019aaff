#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrin::base {

/// The path that UTF-8 text names. The library's own conversion takes the text of a
/// plain string for another encoding on Windows.
inline std::filesystem::path PathOf(std::string_view utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

/// A path's text in UTF-8.
inline std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

/// A path with the system's own separators alone.
inline std::string WithOwnSeparators(const std::string& path) {
  return Utf8Of(PathOf(path).make_preferred());
}

}  // namespace kestrin::base
