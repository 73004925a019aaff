#include "base/fileSystem.h"

#include <utility>

namespace kestrin::base {

FileError::FileError(std::string path, std::string reason)
    : std::runtime_error(path + ": " + reason),
      path_(std::move(path)),
      reason_(std::move(reason)) {}

}  // namespace kestrin::base
