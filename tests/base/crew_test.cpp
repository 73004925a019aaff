#include "base/crew.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

namespace kestrin::base {
namespace {

using testing::ElementsAre;

struct Noting : Crew::Task {
  void Do() override {
    thread = std::this_thread::get_id();
    ++times;
  }
  std::thread::id thread;
  int times = 0;
};

struct Failing : Crew::Task {
  void Do() override { throw std::runtime_error("no"); }
};

void AwaitTrue(const std::atomic<bool>& flag) {
  while (!flag) std::this_thread::yield();
}

/// Says when it is at work, and works until it is let go.
struct Holding : Crew::Task {
  void Do() override {
    begun = true;
    AwaitTrue(released);
  }
  std::atomic<bool> begun = false;
  std::atomic<bool> released = false;
};

TEST(Crew, OneThreadIsTheCallersOwn) {
  Crew crew(1);
  EXPECT_EQ(crew.Threads(), 1U);
  Noting task;
  crew.Post(task);
  crew.Await(task);
  EXPECT_EQ(task.thread, std::this_thread::get_id());
}

TEST(Crew, TaskIsDoneOnceForEachTimeItIsPosted) {
  Crew crew(3);
  std::vector<std::unique_ptr<Noting>> tasks;
  for (int i = 0; i < 100; ++i) tasks.push_back(std::make_unique<Noting>());
  for (int time = 1; time <= 20; ++time) {
    for (const auto& task : tasks) crew.Post(*task);
    for (const auto& task : tasks) crew.Await(*task);
    for (const auto& task : tasks) ASSERT_EQ(task->times, time);
  }
}

TEST(Crew, OtherThreadTakesWhatIsPosted) {
  Crew crew(2);
  Holding task;
  crew.Post(task);
  AwaitTrue(task.begun);  // without anybody awaiting it
  task.released = true;
  crew.Await(task);
}

TEST(Crew, WhoWaitsForAnothersTaskDoesTheNext) {
  Crew crew(2);
  Holding held;
  crew.Post(held);
  AwaitTrue(held.begun);
  struct Releasing : Crew::Task {
    explicit Releasing(Holding& other) : held(other) {}
    void Do() override { held.released = true; }
    Holding& held;
  } releasing(held);
  crew.Post(releasing);
  // Only this thread is left to do what lets the other go on.
  crew.Await(held);
  crew.Await(releasing);
}

TEST(Crew, WhatATaskThrowsComesOutWhereItIsAwaited) {
  Crew crew(2);
  Failing failing;
  for (int time = 0; time < 2; ++time) {
    crew.Post(failing);
    EXPECT_THROW(crew.Await(failing), std::runtime_error);
  }
}

TEST(Crew, WithdrawnTaskIsNotDone) {
  Crew crew(1);
  Noting task;
  crew.Post(task);
  crew.Withdraw(task);
  EXPECT_EQ(task.times, 0);
}

TEST(Crew, WithdrawingWaitsForATaskThatHasBegun) {
  Crew crew(2);
  Holding held;
  crew.Post(held);
  AwaitTrue(held.begun);
  const std::jthread releasing([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    held.released = true;
  });
  crew.Withdraw(held);
  EXPECT_TRUE(held.released);
  for (int time = 0; time < 100; ++time) {
    auto task = std::make_unique<Noting>();
    crew.Post(*task);
    crew.Withdraw(*task);
  }
}

TEST(Crew, MembersOfAllGroupsAreWorkedOff) {
  Crew crew(3);
  std::vector<std::vector<int>> done{{0, 0}, {}, {0, 0, 0}};
  crew.WorkOff({2, 0, 3}, 2, [&](std::size_t group, std::size_t member) { ++done[group][member]; });
  EXPECT_THAT(done, ElementsAre(ElementsAre(1, 1), ElementsAre(), ElementsAre(1, 1, 1)));
}

TEST(Crew, OneThreadWorksThemOffInOrder) {
  Crew crew(1);
  std::vector<std::size_t> order;
  crew.WorkOff({2, 1, 2}, 2, [&](std::size_t group, std::size_t member) {
    order.push_back(10 * group + member);
  });
  EXPECT_THAT(order, ElementsAre(0, 1, 10, 20, 21));
}

TEST(Crew, MembersOfOneGroupAreSideBySide) {
  Crew crew(2);
  std::atomic<int> begun = 0;
  crew.WorkOff({2}, 1, [&](std::size_t, std::size_t) {
    for (++begun; begun < 2;) std::this_thread::yield();
  });
}

TEST(Crew, NoMoreGroupsAreUnderWayThanSaid) {
  Crew crew(4);
  std::mutex mutex;
  std::vector<std::size_t> left(20, 3);
  crew.WorkOff(left, 2, [&](std::size_t group, std::size_t) {
    const std::scoped_lock lock(mutex);
    --left[group];
    // One that begins has at most one before it with members left.
    const auto before = static_cast<std::ptrdiff_t>(group);
    EXPECT_LE(std::ranges::count_if(left.begin(), left.begin() + before,
                                    [](std::size_t members) { return members > 0; }),
              1);
  });
}

TEST(Crew, MembersThatPostAreDoneByNoMoreThreadsThanThereAre) {
  constexpr int kThreads = 2;
  Crew crew(kThreads);
  static std::atomic<int> atWork;
  static std::atomic<int> most;
  atWork = most = 0;
  struct Counting : Crew::Task {
    void Do() override {
      const int now = ++atWork;
      for (int seen = most; now > seen && !most.compare_exchange_weak(seen, now);) {
      }
      std::this_thread::sleep_for(std::chrono::microseconds(50));
      --atWork;
    }
  };
  crew.WorkOff({4, 4}, 2, [&](std::size_t, std::size_t) {
    std::vector<std::unique_ptr<Counting>> tasks;
    for (int i = 0; i < 20; ++i) crew.Post(*tasks.emplace_back(std::make_unique<Counting>()));
    for (const auto& task : tasks) crew.Await(*task);
  });
  EXPECT_LE(most, kThreads);
}

TEST(Crew, AfterAMemberThatThrowsNoOtherBegins) {
  Crew crew(1);
  std::size_t begun = 0;
  EXPECT_THROW(crew.WorkOff({5}, 1,
                            [&](std::size_t, std::size_t member) {
                              ++begun;
                              if (member == 2) throw std::runtime_error("no");
                            }),
               std::runtime_error);
  EXPECT_EQ(begun, 3U);
  // And the crew goes on.
  crew.WorkOff({1}, 1, [&](std::size_t, std::size_t) { ++begun; });
  EXPECT_EQ(begun, 4U);
}

TEST(Crew, OfTwoMembersThatThrowSideBySideOneIsHeardOf) {
  Crew crew(2);
  std::atomic<int> begun = 0;
  EXPECT_THROW(crew.WorkOff({2}, 1,
                            [&](std::size_t, std::size_t) {
                              ++begun;
                              while (begun < 2) std::this_thread::yield();
                              throw std::runtime_error("no");
                            }),
               std::runtime_error);
}

}  // namespace
}  // namespace kestrin::base
