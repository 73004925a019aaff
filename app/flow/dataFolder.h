#pragma once

#include <string>

#include "base/fileSystem.h"

namespace kestrin::flow {

/// The folder that all export folders lie in, made where it is missing: "TrevaskData" in the
/// application folder or, where nothing can be written there (a program that is installed for
/// all users), in the user's documents. Both folders given may lack the separator at their
/// end, the one returned has it; `documents` may be empty where there are none.
/// Failure: where neither can be written, the one in the application folder. An export then
/// says what it could not write.
std::string DataFolder(base::FileSystem& files, const std::string& applicationFolder,
                       const std::string& documents);

}  // namespace kestrin::flow
