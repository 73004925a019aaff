#pragma once

#ifdef _WIN32
#include "geo/threadSlot.h"
#endif

namespace kestrin::geo {

/// The calling thread's own T: made when first asked for, gone when the thread ends.
template <class T>
T& PerThread() {
#ifdef _WIN32
  // The compiler's thread_local frees an object's memory before it destroys it there.
  static const ThreadSlot slot([](void* value) { delete static_cast<T*>(value); });
  if (slot.Get() == nullptr) slot.Set(new T);
  return *static_cast<T*>(slot.Get());
#else
  thread_local T value;
  return value;
#endif
}

}  // namespace kestrin::geo
