#include "tests/jobstore/opening/folderState.h"

#include "tests/support/tempFolder.h"

namespace kestrin::test {
namespace fs = std::filesystem;

FolderState StateOf(const fs::path& folder) {
  FolderState state;
  state["."] = {"", fs::last_write_time(folder), fs::status(folder).permissions()};
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    state[base::Utf8Of(entry.path().filename())] = {
        entry.is_regular_file() ? FileBytes(base::Utf8Of(entry.path())) : "",
        entry.last_write_time(), entry.status().permissions()};
  }
  return state;
}

}  // namespace kestrin::test
