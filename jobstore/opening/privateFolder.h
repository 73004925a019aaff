#pragma once

#include <filesystem>
#include <system_error>

namespace kestrin::opening {

/// A new folder in the system's temporary one that only this user can enter; empty, with
/// the reason in `error`, when none can be made.
std::filesystem::path MakePrivateFolder(std::error_code& error);

}  // namespace kestrin::opening
