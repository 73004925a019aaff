#pragma once

#include <string>
#include <string_view>

namespace kestrin::opening {

/// The URI by which SQLite opens a file as one that nobody changes. `path` is absolute and
/// in SQLite's spelling: "/home/job", "C:/jobs/job", "//server/share/job" or, where the
/// path is to be taken to the letter, "\\?\C:\jobs\job".
std::string ImmutableUri(std::string_view path);

}  // namespace kestrin::opening
