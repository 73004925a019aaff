#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// Windows only.

namespace kestrin {

/// A path (UTF-8, '\\' or '/') as Windows takes it. One that is too long for Windows'
/// usual limit of 260 characters is made absolute and marked as exempt from it, so
/// that it is reached whatever the system's settings. Nothing for text that is not
/// UTF-8.
std::optional<std::wstring> NativePath(const std::string& path);

/// What the system says about one of its error codes, in the user's language, in
/// UTF-8 and without the end of the sentence.
std::string ReasonOf(std::uint32_t code);

}  // namespace kestrin
