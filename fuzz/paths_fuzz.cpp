// Names of jobs, folders and sets: as texts, and as those of real files.

#include <string>
#include <vector>

#include "base/paths.h"
#include "base/temporaryName.h"
#include "export/setNames.h"
#include "fuzz/input.h"
#include "fuzz/memorySets.h"
#include "jobstore/job.h"
#include "jobstore/recordedFormat.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::fuzz {
namespace {

class MadeFolders : public MemorySets {
 public:
  void MakeFolder(const std::string& path) override { made.push_back(path); }
  std::vector<std::string> made;
};

void CheckTexts(const std::string& path) {
  const base::SplitPath split = base::SplitAtLastSeparator(path);
  Require(split.folder + split.name == path, "a path is its folder and its name");
  Require(split.name.find(base::kSeparator) == std::string::npos, "a name has no separator");
  const std::string with = base::WithSeparator(path);
  Require(with.back() == base::kSeparator && base::WithSeparator(with) == with,
          "a folder ends in a separator");
  const base::SplitPath temporary = base::SplitAtLastSeparator(base::TemporaryNameBeside(path));
  Require(temporary.folder == split.folder && base::IsTemporaryName(temporary.name),
          "a temporary name is one, beside its target");
  const base::SplitPath job = exports::JobNameOf(path);
  Require(exports::FileSafeName(job.name).find('.') == std::string::npos,
          "a file-safe name has no dot");
  const std::string folder = exports::ExportFolder(with, "a", "b");
  Require(exports::DefaultBasePath(folder, "a", "b") == with + "a/b/a_b", "sets' default names");
  Require(!exports::IsJobFile(path) || path.ends_with(exports::kJobExtension),
          "a job is one by its extension");
}

void CheckFolders(const std::string& path) {
  MadeFolders files;
  base::MakePath(files, path);
  std::size_t length = 0;
  for (const std::string& made : files.made) {
    Require(path.starts_with(made) && made.size() > length, "folders are made from the left");
    length = made.size();
  }
  const std::size_t trailing = !path.empty() && path.back() == base::kSeparator ? 1 : 0;
  Require(length == path.size() - trailing || path == "/", "all of a path is made");
}

/// A job by that name, written ahead: the library is given it as a URI.
void CheckFile(std::string name) {
  for (char& byte : name) {
    if (byte == '/' || byte == '\0') byte = '%';
  }
  const test::TempFolder folder;
  static const std::string bytes = [&] {
    return test::FileBytes(test::JobBuilder(folder / "made.sqlite")
                               .Version({1, 1}, "3.2.8-1")
                               .Execute("PRAGMA journal_mode=WAL")
                               .Finish());
  }();
  const std::string path = (folder.Path() / ("n" + name)).string();
  const auto files = base::NativeFileSystem();
  const auto file = files->Create(path);
  file->WriteAt(0, bytes);
  file->Close();
  file->Publish();
  jobstore::Job job(path);
  Require(job.IsOpen() && jobstore::RecordedFormat(job) == "3.2.8-1", "a job of any name opens");
  Require(files->Exists(path), "a file of any name is there");
  files->Remove(path);
  Require(!files->Exists(path), "a file of any name goes");
}

}  // namespace

void Run(std::string_view bytes) {
  const std::string path(bytes);
  CheckTexts(path);
  CheckFolders(path);
  CheckFile(path.substr(0, 200));
}

}  // namespace kestrin::fuzz
