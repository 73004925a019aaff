#include "tools/exporter/workers.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace kestrin::exporter {

void WorkOff(std::size_t count, unsigned workers, const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next{0};
  std::mutex mutex;
  std::exception_ptr failure;
  const auto worker = [&] {
    for (std::size_t i = next++; i < count; i = next++) {
      try {
        work(i);
      } catch (...) {
        const std::lock_guard lock(mutex);
        if (!failure) failure = std::current_exception();
        next = count;
      }
    }
  };
  std::vector<std::jthread> threads;
  // The caller's own thread is one of the workers.
  for (std::size_t i = 1; i < std::min<std::size_t>(workers, count); ++i) {
    threads.emplace_back(worker);
  }
  worker();
  threads.clear();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace kestrin::exporter
