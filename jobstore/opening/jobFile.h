#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

/// What a job is on the disk, as far as the systems differ in it.

namespace kestrin::opening {

/// The absolute path of the file itself, links followed: journal and log lie beside that
/// one. Empty when there is no regular file (opening a pipe would wait for ever). Path in
/// UTF-8; on Windows the result is reached whatever its length, and so is what SQLite
/// keeps beside it.
std::filesystem::path JobFile(const std::string& path);

/// SQLite's spelling of a path from JobFile(): UTF-8 everywhere, with '/' between the
/// folders wherever the system takes it.
std::string LibraryText(const std::filesystem::path& path);

/// Size in bytes of a regular file, as of now also while another program writes to it; 0
/// for one that is missing or none.
std::uintmax_t SizeOf(const std::filesystem::path& file);

/// Copies a file to where there is none yet; false, with the reason in `error`, when that
/// fails.
bool CopyTo(const std::filesystem::path& from, const std::filesystem::path& to,
            std::error_code& error);

}  // namespace kestrin::opening
