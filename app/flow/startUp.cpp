#include "app/flow/startUp.h"

#include "export/exportKinds.h"

namespace kestrin {

void EnterApplicationFolder(WindowState& state, FileSystem& files, const std::string& folder,
                            char separator) {
  state.applicationFolder = WithSeparator(folder, separator);
  const std::string data = state.applicationFolder + std::string(kDataFolderName);
  state.dataFolder = WithSeparator(data, separator);
  try {
    files.MakeFolder(data);
  } catch (const FileError&) {
    // Installed where nobody may write.
  }
}

void ClearShapeLabels(Controls& controls) {
  for (int i = 0; i < kKindCount; ++i) controls.SetCaption({Control::kLabel1, i}, "");
}

}  // namespace kestrin
