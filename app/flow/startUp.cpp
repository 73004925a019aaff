#include "app/flow/startUp.h"

#include "export/exportKinds.h"

namespace kestrin::flow {

void EnterApplicationFolder(WindowState& state, base::FileSystem& files, const std::string& folder,
                            char separator) {
  state.applicationFolder = base::WithSeparator(folder, separator);
  const std::string data = state.applicationFolder + std::string(exports::kDataFolderName);
  state.dataFolder = base::WithSeparator(data, separator);
  try {
    files.MakeFolder(data);
  } catch (const base::FileError&) {
    // Installed where nobody may write.
  }
}

void ClearShapeLabels(Controls& controls) {
  for (int i = 0; i < exports::kKindCount; ++i) controls.SetCaption({Control::kLabel1, i}, "");
}

}  // namespace kestrin::flow
