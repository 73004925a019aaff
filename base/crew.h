#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace kestrin::base {

/// Threads that all runs of a program share, the caller's own among them: however many runs
/// hand work over, no more than so many threads are at work.
///
/// Serves any thread. What work throws comes out where its end is waited for.
class Crew {
 public:
  /// A piece of work that can be handed over again and again.
  class Task {
   public:
    Task() = default;
    virtual ~Task() = default;
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;

    /// Does the work, in any thread.
    virtual void Do() = 0;

   private:
    friend class Crew;
    enum class State { kIdle, kPosted, kBegun };
    State state_ = State::kIdle;
    std::exception_ptr failure_;
  };

  /// So many threads, the caller's own among them; one at least. A system that gives fewer
  /// is worked with.
  explicit Crew(unsigned threads);
  ~Crew();
  Crew(const Crew&) = delete;
  Crew& operator=(const Crew&) = delete;

  std::size_t Threads() const { return threads_.size() + 1; }

  /// Hands a task over, which must last until it has been awaited or withdrawn.
  void Post(Task& task);

  /// Returns when a task has been done: here, when nobody has begun it, and while somebody else
  /// is at it other tasks are. Throws what the task threw.
  void Await(Task& task);

  /// Takes a task back, or waits for the end of one that has been begun.
  void Withdraw(Task& task) noexcept;

  /// Calls `work(group, member)` for each member of each group, in order and side by side, but
  /// with no more than so many groups under way at once; returns when all is done. Members may
  /// post tasks of their own: other threads do those before they begin a member, the caller's
  /// begins members first, and a thread that awaits a task begins none. After the first member
  /// that throws no other begins, and that is thrown on. One call at a time.
  void WorkOff(const std::vector<std::size_t>& groupSizes, std::size_t groupsAtOnce,
               const std::function<void(std::size_t, std::size_t)>& work);

 private:
  struct Round;
  using Lock = std::unique_lock<std::mutex>;

  void Serve();
  bool DoOldest(Lock& lock);
  void Do(Task& task, Lock& lock);
  bool DoMember(Lock& lock);

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Task*> posted_;
  Round* round_ = nullptr;
  bool ends_ = false;
  std::vector<std::jthread> threads_;
};

}  // namespace kestrin::base
