#pragma once

#include <string>

#include "tools/sample/scenario.h"

namespace kestrin::sample {

/// `count` sections of the same width in metres side by side, `behind` metres
/// behind the antenna.
ImplementSetup EvenImplement(const std::string& name, int count, double width, double behind = 2);

/// A spreader whose slots hold all there is: a border disc of no width, an absent
/// section between used ones, and a width that no short number shows.
ImplementSetup OddSpreader();

}  // namespace kestrin::sample
