#include "tools/exporter/jobSearch.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

#include "base/runHost.h"
#include "export/exportKinds.h"
#include "export/setNames.h"
#include "tools/exporter/folderListing.h"
#include "tools/exporter/interruption.h"

namespace kestrin::exporter {
namespace {

/// Neither a shell's pattern nor a file dialog shows what begins with a dot; a deleted job is
/// none.
bool IsHidden(std::string_view name) {
  constexpr std::array<std::string_view, 2> kSystems{"$RECYCLE.BIN", "System Volume Information"};
  return name.starts_with('.') || std::ranges::find(kSystems, name) != kSystems.end();
}

/// Whether sets of the job lie beside it under their default names: where the window puts its
/// copy, and nobody a job of their own.
bool IsCopyBesideSets(const std::string& folder, const FolderListing& listing,
                      const std::string& file) {
  const std::string name = exports::FileSafeName(exports::JobNameOf(file).name);
  const std::string date = base::SplitAtLastSeparator(folder).name;
  const std::string base =
      base::SplitAtLastSeparator(exports::DefaultBasePath(folder, name, date)).name;
  return std::ranges::any_of(exports::kExportKinds, [&](const exports::ExportKind& kind) {
    const std::string shapes =
        base + std::string(kind.suffix) + std::string(exports::kShapeExtension);
    return std::ranges::binary_search(listing.files, shapes);
  });
}

class Search {
 public:
  Search(bool recursive, FoundJobs& found) : recursive_(recursive), found_(found) {}

  void Named(const std::string& folder) {
    const std::size_t jobs = found_.paths.size();
    const std::size_t failures = found_.failures.size();
    seen_.clear();
    Walk(folder, true);
    if (found_.paths.size() > jobs || found_.failures.size() > failures) return;
    Fail(folder, recursive_ ? "no job file (*.sqlite) in it or below"
                            : "no job file (*.sqlite) in it; --recursive looks below as well");
  }

 private:
  void Walk(const std::string& folder, bool isNamed) {
    if (StopSignal() != 0) throw base::RunCancelled();
    try {
      const FolderListing listing = ListFolder(folder);
      if (!seen_.insert(listing.identity).second) return;
      Take(folder, listing, isNamed);
    } catch (const base::FileError& error) {
      Fail(folder, "Error reading the folder: " + error.Reason());
    }
  }

  void Take(const std::string& folder, const FolderListing& listing, bool isNamed) {
    const std::string front = base::WithSeparator(folder);
    for (const std::string& file : listing.files) {
      if (IsHidden(file) || !exports::IsJobFile(file)) continue;
      if (isNamed || !IsCopyBesideSets(folder, listing, file)) found_.paths.push_back(front + file);
    }
    if (!recursive_) return;
    for (const std::string& below : listing.folders) {
      if (!IsHidden(below)) Walk(front + below, false);
    }
  }

  void Fail(const std::string& folder, const std::string& text) {
    found_.failures.push_back({.path = folder, .isFolder = true, .kinds = {}, .text = text});
  }

  bool recursive_;
  FoundJobs& found_;
  std::set<std::string> seen_;
};

}  // namespace

FoundJobs FindJobs(const std::vector<std::string>& named, bool recursive) {
  FoundJobs found;
  Search search(recursive, found);
  for (const std::string& path : named) {
    if (IsFolder(path)) {
      search.Named(path);
    } else {
      found.paths.push_back(path);
    }
  }
  return found;
}

}  // namespace kestrin::exporter
