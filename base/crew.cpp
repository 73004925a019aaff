#include "base/crew.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

namespace kestrin::base {
namespace {

/// Works without the lock; what the work throws.
template <class Work>
std::exception_ptr Unlocked(std::unique_lock<std::mutex>& lock, Work work) {
  lock.unlock();
  std::exception_ptr failure;
  try {
    work();
  } catch (...) {
    failure = std::current_exception();
  }
  lock.lock();
  return failure;
}

}  // namespace

/// What is left of a call of WorkOff.
struct Crew::Round {
  struct Group {
    std::size_t size = 0;
    std::size_t begun = 0;
    std::size_t ended = 0;
  };

  std::vector<Group> groups;
  std::size_t atOnce;
  const std::function<void(std::size_t, std::size_t)>& work;
  std::size_t first = 0;  // group that has not ended
  std::size_t underWay = 0;
  std::exception_ptr failure;

  /// The group whose next member may begin.
  std::optional<std::size_t> Next() const {
    if (failure) return std::nullopt;
    std::size_t open = 0;
    for (std::size_t group = first; group < groups.size() && open < atOnce; ++group) {
      if (groups[group].begun < groups[group].size) return group;
      if (groups[group].ended < groups[group].size) ++open;
    }
    return std::nullopt;
  }

  void End(std::size_t group) {
    --underWay;
    ++groups[group].ended;
    while (first < groups.size() && groups[first].ended == groups[first].size) ++first;
  }
};

Crew::Crew(unsigned threads) {
  try {
    for (unsigned i = 1; i < threads; ++i) threads_.emplace_back([this] { Serve(); });
  } catch (const std::system_error&) {
    // The system gives no more.
  }
}

Crew::~Crew() {
  {
    const Lock lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
}

void Crew::Serve() {
  Lock lock(mutex_);
  while (!ends_) {
    if (!DoOldest(lock) && !DoMember(lock)) changed_.wait(lock);
  }
}

void Crew::Post(Task& task) {
  {
    const Lock lock(mutex_);
    task.state_ = Task::State::kPosted;
    posted_.push_back(&task);
  }
  changed_.notify_one();
}

void Crew::Await(Task& task) {
  Lock lock(mutex_);
  if (task.state_ == Task::State::kPosted) {
    std::erase(posted_, &task);
    Do(task, lock);
  }
  while (task.state_ != Task::State::kIdle) {
    if (!DoOldest(lock)) changed_.wait(lock);
  }
  if (task.failure_) std::rethrow_exception(std::exchange(task.failure_, nullptr));
}

void Crew::Withdraw(Task& task) noexcept {
  Lock lock(mutex_);
  if (task.state_ == Task::State::kPosted) {
    std::erase(posted_, &task);
    task.state_ = Task::State::kIdle;
  }
  changed_.wait(lock, [&] { return task.state_ == Task::State::kIdle; });
}

bool Crew::DoOldest(Lock& lock) {
  if (posted_.empty()) return false;
  Task& task = *posted_.front();
  posted_.pop_front();
  Do(task, lock);
  return true;
}

void Crew::Do(Task& task, Lock& lock) {
  task.state_ = Task::State::kBegun;
  task.failure_ = Unlocked(lock, [&] { task.Do(); });
  task.state_ = Task::State::kIdle;
  changed_.notify_all();
}

void Crew::WorkOff(const std::vector<std::size_t>& groupSizes, std::size_t groupsAtOnce,
                   const std::function<void(std::size_t, std::size_t)>& work) {
  Round round{{}, std::max<std::size_t>(groupsAtOnce, 1), work, 0, 0, nullptr};
  for (const std::size_t size : groupSizes) round.groups.push_back({size, 0, 0});
  Lock lock(mutex_);
  round_ = &round;
  changed_.notify_all();
  while (DoMember(lock) || round.underWay > 0) {
    if (round.Next() || DoOldest(lock)) continue;
    if (round.underWay > 0) changed_.wait(lock);
  }
  round_ = nullptr;
  if (round.failure) std::rethrow_exception(round.failure);
}

bool Crew::DoMember(Lock& lock) {
  if (round_ == nullptr) return false;
  Round& round = *round_;
  const std::optional<std::size_t> group = round.Next();
  if (!group) return false;
  const std::size_t member = round.groups[*group].begun++;
  ++round.underWay;
  const std::exception_ptr failure = Unlocked(lock, [&] { round.work(*group, member); });
  if (!round.failure) round.failure = failure;
  round.End(*group);
  changed_.notify_all();
  return true;
}

}  // namespace kestrin::base
