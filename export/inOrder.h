#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/crew.h"

namespace kestrin::exports {

/// Batches of a run's rows that a crew works on while the run's own thread fills the next ones
/// and takes those done, in the order they were filled: what comes of them is the same with any
/// number of threads. With one each is worked on and taken where it is filled.
///
/// A Batch is a base::Crew::Task with IsEmpty(), IsFull() and Clear(). Memory: a batch, or two a
/// thread where there are several. Whatever a task or `take` throws comes out of Filled() and
/// Finish(); when a run ends early, no task outlives this object.
template <class Batch>
class InOrder {
 public:
  /// Without a crew there is one thread. `make` makes a batch; `take` gets each that has been
  /// worked on.
  InOrder(base::Crew* crew, const std::function<std::unique_ptr<Batch>()>& make,
          std::function<void(Batch&)> take)
      : crew_(crew == nullptr ? alone_ : *crew), take_(std::move(take)) {
    const std::size_t count = crew_.Threads() == 1 ? 1 : 2 * crew_.Threads();
    for (std::size_t i = 0; i < count; ++i) batches_.push_back(make());
  }
  ~InOrder() {
    for (; taken_ < handed_; ++taken_) crew_.Withdraw(At(taken_));
  }
  InOrder(const InOrder&) = delete;
  InOrder& operator=(const InOrder&) = delete;

  /// The batch to fill. After each row that went into it, Filled().
  Batch& Filling() { return At(handed_); }
  void Filled() {
    if (Filling().IsFull()) Hand();
  }

  /// Takes all that is left; after the last row.
  void Finish() {
    if (!Filling().IsEmpty()) Hand();
    while (taken_ < handed_) TakeOldest();
  }

 private:
  Batch& At(std::size_t number) { return *batches_[number % batches_.size()]; }

  void Hand() {
    crew_.Post(Filling());
    ++handed_;
    if (handed_ - taken_ == batches_.size()) TakeOldest();
  }

  void TakeOldest() {
    Batch& batch = At(taken_);
    crew_.Await(batch);
    ++taken_;
    take_(batch);
    batch.Clear();
  }

  base::Crew alone_{1};
  base::Crew& crew_;
  std::function<void(Batch&)> take_;
  std::vector<std::unique_ptr<Batch>> batches_;
  std::size_t handed_ = 0;
  std::size_t taken_ = 0;
};

}  // namespace kestrin::exports
