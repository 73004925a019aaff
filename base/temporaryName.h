#pragma once

#include <string>
#include <string_view>

namespace kestrin::base {

/// A new name in the folder of `target` for a file that is not finished yet. It is
/// unlike any other, also between processes and machines that share the folder, and
/// no longer for a long target name. It ends in ".tmp", so that no GIS takes the
/// file for part of a set.
std::string TemporaryNameBeside(std::string_view target);

/// Whether a file of that name, without its folder, can only be one of those.
bool IsTemporaryName(std::string_view name);

}  // namespace kestrin::base
