#include "app/platform/drives.h"

#include <filesystem>
#include <system_error>

#include "base/utf8Path.h"

namespace kestrin::platform {

std::vector<std::string> Drives::FilesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code failed;
  for (std::filesystem::directory_iterator entry(base::PathOf(folder), failed), end;
       !failed && entry != end; entry.increment(failed)) {
    std::error_code unreadable;
    if (entry->is_regular_file(unreadable)) names.push_back(base::Utf8Of(entry->path().filename()));
  }
  return names;
}

}  // namespace kestrin::platform
