#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace kestrin::test {

/// All that a reader could have changed about an entry of a folder.
struct EntryState {
  std::string bytes;
  std::filesystem::file_time_type changed;
  std::filesystem::perms permissions{};

  friend bool operator==(const EntryState&, const EntryState&) = default;
};

using FolderState = std::map<std::string, EntryState>;

/// Every entry by name, with contents and times; the folder itself as ".".
FolderState StateOf(const std::filesystem::path& folder);

}  // namespace kestrin::test
