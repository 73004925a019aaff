#pragma once

#include <memory>

#include "app/window/localeDates.h"
#include "app/window/mainFrm.h"

namespace kestrin::window {

/// The desktop and the file system the program runs in. Needs the application
/// object.
class RealSurroundings {
 public:
  RealSurroundings();

  /// Points into this object.
  Surroundings Get();

 private:
  std::unique_ptr<base::FileSystem> files_;
  std::unique_ptr<platform::Drives> drives_;
  LocaleDates dates_;
};

/// The program's version, as it was built.
flow::ProgramVersion BuiltVersion();

}  // namespace kestrin::window
