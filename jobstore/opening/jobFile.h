#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

/// A job's file and those beside it, as far as systems differ in how they are found, measured
/// and copied.

namespace kestrin::opening {

/// Where the file itself lies, as an absolute path: a link is followed to its end, as journal
/// and log lie beside what it leads to. `path` is UTF-8. On Windows the result can be opened
/// however long it is, and so can the files beside it.
/// Failure: empty, when that is no regular file (opening a pipe would wait for ever).
std::filesystem::path JobFile(const std::string& path);

/// A path from JobFile as SQLite is to be given it: UTF-8, with '/' between the folders
/// wherever the system takes it.
std::string LibraryText(const std::filesystem::path& path);

/// Size in bytes of a file as it is now, also while another program writes to it.
/// Failure: 0, for one that is missing or no regular file.
std::uintmax_t SizeOf(const std::filesystem::path& file);

/// When a file was last written to, in the system's own count.
/// Failure: 0, as above.
std::int64_t WrittenAt(const std::filesystem::path& file);

/// Copies a file to a name that nothing has yet.
/// Failure: false, with the reason in `error`.
bool CopyTo(const std::filesystem::path& from, const std::filesystem::path& to,
            std::error_code& error);

/// Makes a new folder that only this user can enter, with a name in `root` that begins so.
/// Failure: an empty path, with the reason in `error`.
std::filesystem::path MakeOwnFolder(const std::filesystem::path& root, const std::string& begin,
                                    std::error_code& error);

/// Has a folder of this user to itself, by a file "in-use" in it, until what it returns or the
/// process is gone. (Whoever writes a set there locks the folder itself.)
/// Failure: null where somebody else has it, or it is somebody else's.
std::shared_ptr<const void> UseFolder(const std::filesystem::path& folder);

/// Removes a folder of this user, unless somebody uses it. It takes another name first: whoever has
/// just made it, and is about to use it, no longer finds it then.
/// Failure: it stays, or something of it, under a name with ".gone" behind it.
void RemoveUnused(const std::filesystem::path& folder);

}  // namespace kestrin::opening
