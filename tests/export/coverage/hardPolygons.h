#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "tests/export/coverage/literalCoverage.h"
#include "tools/sample/randomness.h"

namespace kestrin::test {

/// A kind of short way that makes rings cross, touch or enclose themselves. The rows are the
/// same for a seed with every compiler and library.
struct HardKind {
  std::string_view name;
  std::vector<LiteralRow> (*rows)(sample::Randomness& chance);
};

/// Every kind there is: reversals, pivots, jitter at a standstill, rows driven again,
/// passes beside and across each other, rows in one line, very narrow and very wide
/// implements, jumps, widths that change, and rows on a grid, where all meets exactly.
const std::vector<HardKind>& HardKinds();

/// A way of 5 to 60 rows of a kind, somewhere in UTM zone 14.
std::vector<LiteralRow> HardPolygon(const HardKind& kind, std::uint64_t seed);

}  // namespace kestrin::test
