#pragma once

#include <vector>

#include "tools/sample/scenario.h"

namespace kestrin::sample {

/// Every scenario a sample job can be made of; the first is the usual one.
const std::vector<Scenario>& Scenarios();

}  // namespace kestrin::sample
