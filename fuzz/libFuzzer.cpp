// What libFuzzer calls.

#include <cstdint>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // An exception that leaves this ends the program with its text.
  kestrin::fuzz::Run({reinterpret_cast<const char*>(data), size});
  return 0;
}
