#include "export/inOrder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <optional>
#include <stdexcept>
#include <thread>

namespace kestrin::exports {
namespace {

/// Doubles numbers, some slowly.
struct Doubling : base::Crew::Task {
  bool IsEmpty() const { return numbers.empty(); }
  bool IsFull() const { return numbers.size() == 3; }
  void Clear() { numbers.clear(); }
  void Do() override {
    if (begun != nullptr) ++*begun;
    if (numbers.front() % 7 == 0) std::this_thread::sleep_for(std::chrono::microseconds(200));
    if (numbers.front() == failsAt) throw std::runtime_error("no");
    for (int& number : numbers) number *= 2;
  }

  std::vector<int> numbers;
  int failsAt = -1;
  std::atomic<int>* begun = nullptr;
};

/// Keeps a thread busy until it is let go.
struct Busy : base::Crew::Task {
  void Do() override {
    begun = true;
    while (!letGo) std::this_thread::yield();
  }

  std::atomic<bool> begun = false;
  std::atomic<bool> letGo = false;
};

/// So many threads; 0 for no crew at all.
class InOrderOf : public testing::TestWithParam<unsigned> {
 protected:
  InOrderOf() {
    if (GetParam() > 0) crew_.emplace(GetParam());
  }

  /// Doubles 0, 1, ... and takes what comes of them.
  void Double(int count, int failsAt = -1) {
    InOrder<Doubling> batches(
        crew_ ? &*crew_ : nullptr,
        [&] {
          auto batch = std::make_unique<Doubling>();
          batch->failsAt = failsAt;
          ++made_;
          return batch;
        },
        [&](const Doubling& batch) {
          ++takings_;
          if (refusesAt_ == batch.numbers.front()) throw std::logic_error("not this one");
          taken_.insert(taken_.end(), batch.numbers.begin(), batch.numbers.end());
        });
    for (int i = 0; i < count; ++i) {
      batches.Filling().numbers.push_back(i);
      batches.Filled();
    }
    batches.Finish();
  }

  void ExpectDoubled(int count) {
    ASSERT_EQ(taken_.size(), static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) EXPECT_EQ(taken_[static_cast<std::size_t>(i)], 2 * i);
  }

  std::optional<base::Crew> crew_;
  std::vector<int> taken_;
  int refusesAt_ = -1;
  unsigned made_ = 0;  // batches
  int takings_ = 0;
};

TEST_P(InOrderOf, WhatWasFilledFirstIsTakenFirst) {
  Double(1000);
  ExpectDoubled(1000);
}

TEST_P(InOrderOf, LastBatchNeedsNotBeFull) {
  Double(2);
  ExpectDoubled(2);
}

TEST_P(InOrderOf, NothingComesOfNothing) {
  Double(0);
  ExpectDoubled(0);
}

TEST_P(InOrderOf, FailedWorkComesOutAfterAllBeforeIt) {
  EXPECT_THROW(Double(1000, 300), std::runtime_error);
  ExpectDoubled(300);
}

TEST_P(InOrderOf, WhatTakingThrowsEndsTheRun) {
  refusesAt_ = 600;
  EXPECT_THROW(Double(1000), std::logic_error);
  ExpectDoubled(300);
}

TEST_P(InOrderOf, BatchesAreTwoAThreadAndOneForOneAlone) {
  Double(1);
  EXPECT_EQ(made_, GetParam() <= 1 ? 1 : 2 * GetParam());
}

TEST_P(InOrderOf, BatchIsHandedOverOnceItIsFull) {
  Double(7);
  EXPECT_EQ(takings_, 3);
}

TEST(InOrder, RunThatEndsEarlyTakesBackAllThatNobodyHasBegun) {
  base::Crew crew(2);
  Busy busy;
  crew.Post(busy);
  while (!busy.begun) std::this_thread::yield();
  std::atomic<int> begun = 0;
  {
    const auto make = [&] {
      auto batch = std::make_unique<Doubling>();
      batch->begun = &begun;
      return batch;
    };
    InOrder<Doubling> batches(&crew, make, [](const Doubling&) {});
    for (int i = 0; i < 9; ++i) {
      batches.Filling().numbers.push_back(i);
      batches.Filled();
    }
  }
  Doubling last;
  last.numbers = {1};
  crew.Post(last);
  busy.letGo = true;
  crew.Await(busy);
  crew.Await(last);
  EXPECT_EQ(begun, 0);
}

INSTANTIATE_TEST_SUITE_P(Threads, InOrderOf, testing::Values(0U, 1U, 2U, 5U));

}  // namespace
}  // namespace kestrin::exports
