#pragma once

namespace kestrin::geo {

/// A pointer for each thread, handed to `destroy` when its thread ends, and at the
/// end of the program at the latest. Windows only.
class ThreadSlot {
 public:
  using Destroy = void (*)(void*);
  explicit ThreadSlot(Destroy destroy);
  ~ThreadSlot();
  ThreadSlot(const ThreadSlot&) = delete;
  ThreadSlot& operator=(const ThreadSlot&) = delete;

  /// Null until it is set in this thread.
  void* Get() const;
  void Set(void* value) const;

 private:
  unsigned long index_;
};

}  // namespace kestrin::geo
