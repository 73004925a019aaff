#include <gtest/gtest.h>

#include <cstdlib>
#include <tuple>

#include "tests/export/coverage/hardPolygons.h"
#include "tests/export/coverage/ringJudge.h"
#include "tests/export/coverage/ringsOf.h"
#include "tests/export/coverage/sharpTurns.h"

namespace kestrin::coverage {
namespace {

/// An area summed up over whole northings is good to some square centimetres.
constexpr double kAcresWithin = 1e-5;

/// The rings made of rows, as they are handed to the writer.
std::vector<test::WrittenRing> WrittenRings(const std::vector<test::LiteralRow>& rows) {
  std::vector<test::WrittenRing> written;
  for (const test::MadeRing& ring : test::RingsOf(rows)) {
    written.push_back({ring.degrees, ring.acres, kAcresWithin, ring.metres});
  }
  return written;
}

/// Judges jobs made here, each for itself.
class JudgedRows : public testing::Test {
 protected:
  void Judge(const std::string& name, const std::vector<test::LiteralRow>& rows) {
    test::Verdict one = judge_.Judge(name, rows, WrittenRings(rows));
    if (one.changed.Share() > kWrongOfOne &&
        one.changed.wrong > test::kWrongShare * one.all.covered) {
      one.faults.push_back(name + ": " + std::to_string(100 * one.changed.Share()) + " % wrong");
    }
    all_.Add(one);
  }

  void ExpectFitAndTrue() {
    EXPECT_TRUE(all_.faults.empty()) << all_.Text();
    EXPECT_LE(all_.changed.Share(), test::kWrongShare);
    EXPECT_GT(all_.rings, 0);
  }

 private:
  /// Of a single way, which can be as small as a slit is.
  static constexpr double kWrongOfOne = 0.05;

  geo::UtmProjection projection_{test::kRingZone};
  test::RingJudge judge_{projection_};
  test::Verdict all_;
};

/// Seeds of each kind; KESTRIN_SEEDS asks for more of them. Among the first 140 are two ways
/// whose slits lead north over a neck and must take another direction.
std::uint64_t Seeds() {
  const char* asked = std::getenv("KESTRIN_SEEDS");
  return asked == nullptr ? 140 : std::strtoull(asked, nullptr, 10);
}

class HardPolygons : public JudgedRows, public testing::WithParamInterface<test::HardKind> {};

TEST_P(HardPolygons, RingsAreValidAndTheGroundCovered) {
  for (std::uint64_t seed = 1; seed <= Seeds(); ++seed) {
    Judge("seed " + std::to_string(seed), test::HardPolygon(GetParam(), seed));
  }
  ExpectFitAndTrue();
}

INSTANTIATE_TEST_SUITE_P(Ways, HardPolygons, testing::ValuesIn(test::HardKinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });

/// The implement's width, and the radius as a share of half of it.
class SharpTurns : public JudgedRows,
                   public testing::WithParamInterface<std::tuple<double, double>> {};

TEST_P(SharpTurns, RingsAreValidAndTheGroundCovered) {
  const auto [width, share] = GetParam();
  for (const test::SharpTurn& turn : test::SharpTurns(width, share)) {
    std::vector<test::LiteralRow> rows;
    for (const SwathRow& row : turn.rows) rows.push_back({row, false});
    Judge(turn.name, rows);
  }
  ExpectFitAndTrue();
}

INSTANTIATE_TEST_SUITE_P(WidthsAndShares, SharpTurns,
                         testing::Combine(testing::Values(3.0, 48.0),
                                          testing::Values(0.0, 0.25, 0.75, 1.5)));

}  // namespace
}  // namespace kestrin::coverage
