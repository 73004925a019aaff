#include "export/coverage/rings.h"

#include <gtest/gtest.h>

#include "tests/export/coverage/hardPolygons.h"
#include "tests/export/coverage/ringsOf.h"

namespace kestrin::coverage {
namespace {

/// All hard polygons as one way, some hundred rings.
std::vector<test::LiteralRow> ManyRows() {
  std::vector<test::LiteralRow> all;
  for (std::uint64_t seed = 1; seed <= 8; ++seed) {
    for (const test::HardKind& kind : test::HardKinds()) {
      const std::vector<test::LiteralRow> rows = test::HardPolygon(kind, seed);
      all.insert(all.end(), rows.begin(), rows.end());
    }
  }
  return all;
}

TEST(RingMaker, HandsOnTheSameRingsInTheSameOrderWithACrew) {
  base::Crew crew(3);
  const auto alone = test::RingsOf(ManyRows());
  const auto together = test::RingsOf(ManyRows(), &crew);
  ASSERT_GT(alone.size(), 100U);
  ASSERT_EQ(alone.size(), together.size());
  for (std::size_t i = 0; i < alone.size(); ++i) {
    ASSERT_EQ(alone[i].metres, together[i].metres) << i;
    ASSERT_EQ(alone[i].acres, together[i].acres) << i;
  }
}

TEST(RingMaker, LeavesPolygonsWithoutThreePointsOut) {
  const geo::WorkingPlane plane({{}, 45, -99});
  test::RecordingHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{host, *files, {}};
  int rings = 0;
  RingMaker maker(plane, run, [&rings](Ring) { ++rings; });
  maker.Add({{{0, 0}}, {{5, 0}}});
  maker.Add({{{0, 0}, {0, 9}}, {{5, 0}, {5, 9}}});
  maker.Finish();
  EXPECT_EQ(rings, 1);
}

TEST(RingMaker, YieldsToItsHostUnlessSeveralThreadsAreAtWork) {
  base::Crew one(1);
  base::Crew two(2);
  const geo::WorkingPlane plane({{}, 45, -99});
  const auto files = base::NativeFileSystem();
  for (base::Crew* crew : std::initializer_list<base::Crew*>{nullptr, &one, &two}) {
    test::RecordingHost host;
    exports::ExportRun run{.host = host, .files = *files, .options = {}, .crew = crew};
    RingMaker maker(plane, run, [](Ring) {});
    maker.Add({{{0, 0}, {9, 9}, {0, 9}}, {{5, 0}, {-4, 4}, {5, 9}}});
    maker.Finish();
    EXPECT_EQ(host.yields > 0, crew != &two);
  }
}

TEST(RingMaker, SavesAtOnePolygonWhatAnotherMayLose) {
  const geo::WorkingPlane plane({{}, 45, -99});
  const auto files = base::NativeFileSystem();
  for (const bool saves : {true, false}) {
    test::RecordingHost host;
    exports::ExportRun run{host, *files, {}};
    RingMaker maker(plane, run, [](Ring) {});
    if (saves) maker.Add({{{0, 0}, {0, 100}}, {{1, 0}, {1, 100}}});
    maker.Add({{{0, 0}, {0, 0.65}, {0.15, 0.5}, {-0.15, 0.5}, {-0.15, 1}},
               {{1, 0}, {1, 0.65}, {1, 0.665}, {1, 0.68}, {1, 1}}});
    maker.Finish();
    EXPECT_EQ(host.yields == 0, saves) << "a union is needed without savings alone";
  }
}

TEST(RingMaker, EndsWithoutTheRingsThatNobodyTakesAnyMore) {
  base::Crew crew(3);
  const geo::WorkingPlane plane({{}, 45, -99});
  test::RecordingHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{.host = host, .files = *files, .options = {}, .crew = &crew};
  const auto hand = [&] {
    RingMaker maker(plane, run, [](Ring) { throw base::RunCancelled(); });
    for (int i = 0; i < 100; ++i) maker.Add({{{0, 0}, {9, 9}, {0, 9}}, {{5, 0}, {-4, 4}, {5, 9}}});
  };
  EXPECT_THROW(hand(), base::RunCancelled);
}

}  // namespace
}  // namespace kestrin::coverage
