#pragma once

#include <string>

namespace kestrin::sample {

/// The statements that create the tables of a job file, as the console makes them.
/// The program itself only reads jobs; sample jobs and tests are made with this.
std::string JobSchema();

}  // namespace kestrin::sample
