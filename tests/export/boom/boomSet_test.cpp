#include <gtest/gtest.h>

#include <array>
#include <random>

#include "tests/export/boom/boomFixture.h"
#include "tests/support/toolOutput.h"

namespace kestrin::boom {
namespace {

class BoomSet : public test::BoomFixture {
 protected:
  /// Exports a job and expects the bytes of the literal version.
  void ExpectLiteralBytes(const std::string& job);
};

void BoomSet::ExpectLiteralBytes(const std::string& job) {
  const exports::ExportOutcome outcome = Export(job);
  const test::LiteralSet expected = test::LiteralBoom(job, options_.date);
  EXPECT_EQ(outcome.epochs, expected.epochs);
  EXPECT_EQ(host_.rows, expected.epochs);
  EXPECT_TRUE(test::FileBytes(base_ + ".shp") == expected.shp);
  EXPECT_TRUE(test::FileBytes(base_ + ".shx") == expected.shx);
  EXPECT_TRUE(test::FileBytes(base_ + ".dbf") == expected.dbf);
}

TEST_F(BoomSet, IsLaidOutToTheByte) {
  ReferenceOnly();
  builder_.Implement(kStart, "Boom", {{2, -1, 0, 0}, {3, 1.5, 0.5, 0}});
  builder_.Products(kStart, "Urea", "", "Lime").DesiredRates(kStart, 120, 0, 3.14159);
  builder_.ActualRates(kStart, 118.25, 0, -2.5);
  builder_.Epoch(kStart, 0, 0, 0.3).Epoch({1400, 2000}, 1, 5, 0.4);
  ExpectLiteralBytes(builder_.Finish());
}

TEST_F(BoomSet, WithoutRecordsIsLaidOutToTheByte) {
  ReferenceOnly();
  ExpectLiteralBytes(builder_.Finish());
}

// ---------------------------------------------------------------- random jobs

/// Fills jobs with few distinct times and rates, so that everything meets.
class RandomJob {
 public:
  RandomJob(unsigned seed, test::JobBuilder& builder) : random_(seed), builder_(builder) {}

  void Fill() {
    references_ = Upto(9) == 0 ? 0 : 1 + Upto(3);
    for (int i = 0; i < references_; ++i) {
      builder_.Reference(i == 0 ? jobstore::GpsKey{1399, 0} : Time(), 46 + Upto(3),
                         -99 + Upto(20) * 0.2);
    }
    // A lone first record, so that the slots before the others exist.
    if (Upto(4) != 0) {
      builder_.Implement({1399, 10}, "Lead", {{1, 0, 0, 0}});
      builder_.Epoch({1399, 10}, 0, 0);
    }
    for (int i = Upto(5); i > 0; --i) Implement();
    for (int i = Upto(6); i > 0; --i) builder_.DesiredRates(Time(), Upto(2), Upto(1), Upto(1));
    for (int i = Upto(4); i > 0; --i) builder_.Products(Time(), Name(), Name(), Name());
    for (int i = Upto(30); i > 0; --i) builder_.ActualRates(Time(), Upto(2), Upto(1) / 300.0);
    for (int i = Upto(80); i > 0; --i) Epoch();
  }

 private:
  int Upto(int most) { return std::uniform_int_distribution(0, most)(random_); }
  double Metres() { return std::uniform_real_distribution(-500.0, 500.0)(random_); }
  jobstore::GpsKey Time() { return {1400 + Upto(2), Upto(40)}; }

  std::string Name() {
    static constexpr std::array kNames{"", "", " ", "Urea", "Ammonium sulphate", " Lime "};
    return kNames[static_cast<std::size_t>(Upto(kNames.size() - 1))];
  }

  void Implement() {
    std::vector<jobstore::Section> sections;
    for (int i = Upto(4); i > 0; --i) {
      sections.push_back({1.0 * Upto(3) - 1, Metres() / 100, Metres() / 100, 0});
    }
    builder_.Implement(Time(), Name(), sections);
  }

  void Epoch() {
    jobstore::EpochRow row;
    row.time = Time();
    row.east = Metres();
    row.north = Metres();
    row.yaw = Metres();
    row.type = Upto(9) == 0 ? 1 : test::kTakesPart;
    row.boomStatus = Upto(255);
    builder_.Epoch(row);
  }

  std::mt19937 random_;
  test::JobBuilder& builder_;
  int references_ = 0;
};

/// A fixture's tools outside a fixture of their own.
class OneJob : public BoomSet {
 public:
  void TestBody() override {}

  bool Compare(unsigned seed) {
    RandomJob(seed, builder_).Fill();
    const std::string job = builder_.Finish();
    try {
      test::LiteralBoom(job, options_.date);
    } catch (const exports::SubscriptError&) {
      EXPECT_THROW(Export(job), exports::SubscriptError);
      ExpectNothingWritten();
      return false;
    }
    ExpectLiteralBytes(job);
    return true;
  }
};

TEST(BoomSetOfRandomJobs, EqualsTheLiteralVersionToTheByte) {
  int exported = 0;
  constexpr unsigned kJobs = 150;
  for (unsigned seed = 0; seed < kJobs; ++seed) {
    if (OneJob().Compare(seed)) ++exported;
    ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed;
  }
  EXPECT_GT(exported, 60);
  EXPECT_LT(exported, 145);
}

// ---------------------------------------------------------------- other readers

class BoomSetRead : public BoomSet {
 protected:
  /// Two records: one of two lines, one of none.
  void ExportSample() {
    ReferenceOnly();
    builder_.Implement({1400, 1000}, "Boom", {{2, 0, 0, 0}, {0, 5, 0, 0}});
    builder_.Implement({1400, 2000}, "None", {});
    builder_.Products({1400, 1000}, "Urea");
    builder_.ActualRates({1400, 1000}, 12.5);
    builder_.Epoch({1400, 1000}, 0, 0).Epoch({1400, 2000}, 9, 9);
    ASSERT_TRUE(Export().made);
  }
};

TEST_F(BoomSetRead, ByGdal) {
  if (!test::Installed("ogrinfo")) GTEST_SKIP();
  ExportSample();
  const std::string seen = test::Output("ogrinfo -ro -al '" + base_ + ".shp'");
  EXPECT_NE(seen.find("Feature Count: 2"), std::string::npos) << seen;
  EXPECT_NE(seen.find("MULTILINESTRING (("), std::string::npos) << seen;
  EXPECT_NE(seen.find("Urea"), std::string::npos) << seen;
  EXPECT_NE(seen.find("ActRate1 (Real) = 12.50"), std::string::npos) << seen;
  EXPECT_EQ(seen.find("Warning"), std::string::npos) << seen;
  EXPECT_EQ(seen.find("ERROR"), std::string::npos) << seen;
}

TEST_F(BoomSetRead, ByShapelib) {
  if (!test::Installed("shpdump") || !test::Installed("dbfdump")) GTEST_SKIP();
  ExportSample();
  const std::string shapes = test::Output("shpdump '" + base_ + "'");
  EXPECT_NE(shapes.find("Shapefile Type: Arc   # of Shapes: 2"), std::string::npos) << shapes;
  EXPECT_NE(shapes.find("nVertices=4, nParts=2"), std::string::npos) << shapes;
  EXPECT_NE(shapes.find("nVertices=0, nParts=0"), std::string::npos) << shapes;
  const std::string rows = test::Output("dbfdump '" + base_ + ".dbf'");
  EXPECT_NE(rows.find("IMPLEMENT"), std::string::npos) << rows;
  EXPECT_NE(rows.find("Boom"), std::string::npos) << rows;
}

}  // namespace
}  // namespace kestrin::boom
