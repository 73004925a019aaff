#include "tools/exporter/jobSets.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <optional>

#include "tests/support/tempFolder.h"

namespace kestrin::exporter {
namespace {

/// A job of three kinds of which no set can be made, and what stderr has of it so far.
class SetsOfABrokenJob : public testing::Test {
 protected:
  SetsOfABrokenJob() {
    for (const exports::ExportKind& kind : std::span(exports::kExportKinds).first(3)) {
      options_.kinds.push_back(&kind);
    }
    plan_.jobPath = "job";
    plan_.obstacle = "broken";
    sets_.emplace(plan_, shop_);
  }

  std::string Told() { return test::FileBytes(folder_ / "told"); }

  test::TempFolder folder_;
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> errors_{
      std::fopen((folder_ / "told").c_str(), "wb"), std::fclose};
  Console console_{errors_.get(), errors_.get(), {}};
  Report report_{console_, {}};
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
  base::Crew crew_{1};
  ExportOptions options_;
  JobPlan plan_;
  Workshop shop_{options_, *files_, crew_, console_, report_};
  std::optional<JobSets> sets_;
};

TEST_F(SetsOfABrokenJob, AreOneLineOnceEveryKindHasSaidIt) {
  for (const std::size_t kind : {2U, 0U, 1U}) {
    EXPECT_EQ(Told(), "");
    EXPECT_FALSE(sets_->AreComplete());
    sets_->Make(kind);
  }
  EXPECT_EQ(Told(), "kestrin-export: job: broken\n");
  EXPECT_FALSE(sets_->AreComplete());
  sets_.reset();
  EXPECT_EQ(Told(), "kestrin-export: job: broken\n");
}

TEST_F(SetsOfABrokenJob, AreALineEachWhenTheRunIsStoppedBeforeTheLast) {
  sets_->Make(2);
  sets_->Make(1);
  sets_.reset();
  EXPECT_EQ(Told(), "kestrin-export: job: boom: broken\nkestrin-export: job: poly: broken\n");
}

}  // namespace
}  // namespace kestrin::exporter
