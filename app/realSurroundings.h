#pragma once

#include <memory>

#include "app/localeDates.h"
#include "app/mainFrm.h"

namespace kestrin {

/// The desktop and the file system the program runs in. Needs the application
/// object.
class RealSurroundings {
 public:
  RealSurroundings();

  /// Points into this object.
  Surroundings Get();

 private:
  std::unique_ptr<FileSystem> files_;
  std::unique_ptr<Drives> drives_;
  LocaleDates dates_;
};

/// The program's version, as it was built.
ProgramVersion BuiltVersion();

}  // namespace kestrin
