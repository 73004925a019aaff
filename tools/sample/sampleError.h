#pragma once

#include <stdexcept>

namespace kestrin::sample {

/// A sample job that could not be made: no such profile, the file is there already,
/// or what SQLite or the system says, the path in front.
class SampleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace kestrin::sample
