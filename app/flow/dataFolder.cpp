#include "app/flow/dataFolder.h"

#include "base/paths.h"
#include "export/setNames.h"

namespace kestrin::flow {
namespace {

/// Makes a folder's last level where it is missing; whether files can be made in it then. Only
/// a file that was made tells: what permissions come to differs from system to system and
/// from drive to drive.
bool CanBeUsed(base::FileSystem& files, const std::string& folder) {
  try {
    files.MakeFolder(folder);
    files.Create(base::WithSeparator(folder) + "probe");
    return true;
  } catch (const base::FileError&) {
    return false;
  }
}

std::string DataFolderIn(const std::string& folder) {
  return base::WithSeparator(folder) + std::string(exports::kDataFolderName);
}

/// A desktop names the documents also where nobody has made them yet.
void MakeDocuments(base::FileSystem& files, const std::string& documents) {
  try {
    base::MakePath(files, documents);
  } catch (const base::FileError&) {
    // Then the folder in them cannot be made either.
  }
}

}  // namespace

std::string DataFolder(base::FileSystem& files, const std::string& applicationFolder,
                       const std::string& documents) {
  std::string beside = base::WithSeparator(DataFolderIn(applicationFolder));
  if (CanBeUsed(files, DataFolderIn(applicationFolder)) || documents.empty()) return beside;
  MakeDocuments(files, documents);
  const bool inDocuments = CanBeUsed(files, DataFolderIn(documents));
  return inDocuments ? base::WithSeparator(DataFolderIn(documents)) : beside;
}

}  // namespace kestrin::flow
