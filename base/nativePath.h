#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Windows only.

namespace kestrin::base {

/// A path (UTF-8, '\\' or '/') as Windows takes it. One that is too long for Windows'
/// usual limit of 260 characters is made absolute and marked as exempt from it, so
/// that it is reached whatever the system's settings. Nothing for text that is not
/// UTF-8.
std::optional<std::wstring> NativePath(const std::string& path);

/// What the system says in UTF-8. What is no UTF-16 in it, as a name may have, comes out as marks;
/// a file is then not reached by that name, which is said.
std::string Utf8Text(std::wstring_view text);

/// A path in full, as the system reads it from here; a device's begins with `\\.\`.
std::wstring AbsolutePath(const std::wstring& path);

/// An absolute path without the mark of a long one, where it means the same file
/// without it.
std::wstring UsualPath(const std::wstring& path);

}  // namespace kestrin::base
