#include "tools/exporter/jobFailures.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

#include "tests/support/tempFolder.h"

namespace kestrin::exporter {
namespace {

/// The failures of a job of three kinds, and what stderr has of them so far.
class FailuresOfAJob : public testing::Test {
 protected:
  std::string Told() {
    std::rewind(errors_.get());
    std::string text;
    for (int c; (c = std::getc(errors_.get())) != EOF;) text += static_cast<char>(c);
    return text;
  }

  test::TempFolder folder_;
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> errors_{
      std::fopen((folder_ / "told").c_str(), "w+b"), std::fclose};
  Console console_{errors_.get(), errors_.get(), {}};
  Report report_{console_, {}};
  JobFailures failures_{report_, "job", 3};
};

TEST_F(FailuresOfAJob, AreOneLineWhenEveryKindBeginsWithTheSame) {
  failures_.Add("wire", {"broken"});
  failures_.Add("boom", {"broken", "so there is no boom"});
  EXPECT_EQ(Told(), "");
  failures_.Add("poly", {"broken"});
  failures_.Finish();
  EXPECT_EQ(Told(), "kestrin-export: job: broken\n");
  EXPECT_TRUE(failures_.Any());
}

TEST_F(FailuresOfAJob, AreALineEachAsSoonAsAKindEndsInAnotherWay) {
  failures_.Add("wire", {"broken"});
  failures_.Add("boom", {});
  EXPECT_EQ(Told(), "kestrin-export: job: wire: broken\n");
  failures_.Add("poly", {"broken", "twice"});
  const std::string all =
      "kestrin-export: job: wire: broken\nkestrin-export: job: poly: broken\n"
      "kestrin-export: job: poly: twice\n";
  EXPECT_EQ(Told(), all);
  failures_.Finish();
  EXPECT_EQ(Told(), all);
}

TEST_F(FailuresOfAJob, ThatWereHeldBackAreToldWhenTheRunIsStopped) {
  failures_.Add("wire", {"broken"});
  failures_.Add("boom", {"broken"});
  failures_.Finish();
  EXPECT_EQ(Told(), "kestrin-export: job: wire: broken\nkestrin-export: job: boom: broken\n");
}

TEST_F(FailuresOfAJob, AreNoneWhenAllGoesWell) {
  for (const char* kind : {"wire", "boom", "poly"}) failures_.Add(kind, {});
  failures_.Finish();
  EXPECT_EQ(Told(), "");
  EXPECT_FALSE(failures_.Any());
}

}  // namespace
}  // namespace kestrin::exporter
