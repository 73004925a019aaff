#include "geo/threadSlot.h"

#include <windows.h>

#include <new>

namespace kestrin::geo {

ThreadSlot::ThreadSlot(Destroy destroy) : index_(FlsAlloc(destroy)) {
  if (index_ == FLS_OUT_OF_INDEXES) throw std::bad_alloc();
}

// Destroys what is left in any thread.
ThreadSlot::~ThreadSlot() { FlsFree(index_); }

void* ThreadSlot::Get() const { return FlsGetValue(index_); }

void ThreadSlot::Set(void* value) const { FlsSetValue(index_, value); }

}  // namespace kestrin::geo
