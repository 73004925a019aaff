#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "tests/export/boom/boomFixture.h"

namespace kestrin::boom {
namespace {

class BoomSet : public test::BoomFixture {
 protected:
  /// Exports the job and expects the bytes of the literal version.
  void ExpectLiteralBytes();
};

void BoomSet::ExpectLiteralBytes() {
  const exports::ExportOutcome outcome = Export();
  const test::LiteralSet expected = test::LiteralBoom(jobPath, options.date);
  EXPECT_EQ(outcome.epochs, expected.epochs);
  EXPECT_EQ(host.rows, expected.epochs);
  EXPECT_TRUE(test::FileBytes(base + ".shp") == expected.shp);
  EXPECT_TRUE(test::FileBytes(base + ".shx") == expected.shx);
  EXPECT_TRUE(test::FileBytes(base + ".dbf") == expected.dbf);
}

TEST_F(BoomSet, IsLaidOutToTheByte) {
  ReferenceOnly();
  builder.Implement(kStart, "Boom", {{2, -1, 0, 0}, {3, 1.5, 0.5, 0}});
  builder.Products(kStart, "Urea", "", "Lime").DesiredRates(kStart, 120, 0, 3.14159);
  builder.ActualRates(kStart, 118.25, 0, -2.5);
  builder.Epoch(kStart, 0, 0, 0.3).Epoch({1400, 2000}, 1, 5, 0.4);
  ExpectLiteralBytes();
}

TEST_F(BoomSet, WithoutRecordsIsLaidOutToTheByte) {
  ReferenceOnly();
  ExpectLiteralBytes();
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
    RandomJob(seed, builder).Fill();
    jobPath = builder.Finish();
    try {
      test::LiteralBoom(jobPath, options.date);
    } catch (const exports::SubscriptError&) {
      EXPECT_THROW(Export(), exports::SubscriptError);
      EXPECT_FALSE(AnyFile());
      return false;
    }
    ExpectLiteralBytes();
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

/// What a command prints.
std::string OutputOf(const std::string& command) {
  std::FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer;
  while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
    output.append(buffer.data(), size);
  }
  pclose(pipe);
  return output;
}

bool Installed(const std::string& program) { return !OutputOf("command -v " + program).empty(); }

class BoomSetRead : public BoomSet {
 protected:
  /// Two records: one of two lines, one of none.
  void ExportSample() {
    ReferenceOnly();
    builder.Implement({1400, 1000}, "Boom", {{2, 0, 0, 0}, {0, 5, 0, 0}});
    builder.Implement({1400, 2000}, "None", {});
    builder.Products({1400, 1000}, "Urea");
    builder.ActualRates({1400, 1000}, 12.5);
    builder.Epoch({1400, 1000}, 0, 0).Epoch({1400, 2000}, 9, 9);
    ASSERT_TRUE(Export().made);
  }
};

TEST_F(BoomSetRead, ByGdal) {
  if (!Installed("ogrinfo")) GTEST_SKIP();
  ExportSample();
  const std::string seen = OutputOf("ogrinfo -ro -al '" + base + ".shp' 2>&1");
  EXPECT_NE(seen.find("Feature Count: 2"), std::string::npos) << seen;
  EXPECT_NE(seen.find("MULTILINESTRING (("), std::string::npos) << seen;
  EXPECT_NE(seen.find("Urea"), std::string::npos) << seen;
  EXPECT_NE(seen.find("ActRate1 (Real) = 12.50"), std::string::npos) << seen;
  EXPECT_EQ(seen.find("Warning"), std::string::npos) << seen;
  EXPECT_EQ(seen.find("ERROR"), std::string::npos) << seen;
}

TEST_F(BoomSetRead, ByShapelib) {
  if (!Installed("shpdump") || !Installed("dbfdump")) GTEST_SKIP();
  ExportSample();
  const std::string shapes = OutputOf("shpdump '" + base + "' 2>&1");
  EXPECT_NE(shapes.find("Shapefile Type: Arc   # of Shapes: 2"), std::string::npos) << shapes;
  EXPECT_NE(shapes.find("nVertices=4, nParts=2"), std::string::npos) << shapes;
  EXPECT_NE(shapes.find("nVertices=0, nParts=0"), std::string::npos) << shapes;
  const std::string rows = OutputOf("dbfdump '" + base + ".dbf' 2>&1");
  EXPECT_NE(rows.find("IMPLEMENT"), std::string::npos) << rows;
  EXPECT_NE(rows.find("Boom"), std::string::npos) << rows;
}

}  // namespace
}  // namespace kestrin::boom
