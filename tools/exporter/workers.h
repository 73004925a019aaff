#pragma once

#include <cstddef>
#include <functional>

namespace kestrin::exporter {

/// Calls `work(i)` for 0 up to, not including, `count`, at most `workers` at once,
/// in this order as far as they start. The first exception ends what has not
/// started yet and is thrown again when all have ended.
void WorkOff(std::size_t count, unsigned workers, const std::function<void(std::size_t)>& work);

}  // namespace kestrin::exporter
