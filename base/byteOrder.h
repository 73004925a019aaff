#pragma once

#include <bit>
#include <cstdint>

/// Explicit byte encoders for the shapefile formats, which mix both orders. Each
/// writes at `out` and returns the place behind what it wrote.

namespace kestrin::base {

inline char* PutLe16(char* out, std::uint32_t value) {
  *out++ = static_cast<char>(value);
  *out++ = static_cast<char>(value >> 8);
  return out;
}

inline char* PutLe32(char* out, std::uint32_t value) {
  out = PutLe16(out, value);
  return PutLe16(out, value >> 16);
}

inline char* PutBe32(char* out, std::uint32_t value) {
  *out++ = static_cast<char>(value >> 24);
  *out++ = static_cast<char>(value >> 16);
  *out++ = static_cast<char>(value >> 8);
  *out++ = static_cast<char>(value);
  return out;
}

/// An IEEE 754 double, least significant byte first.
inline char* PutLeDouble(char* out, double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  out = PutLe32(out, static_cast<std::uint32_t>(bits));
  return PutLe32(out, static_cast<std::uint32_t>(bits >> 32));
}

}  // namespace kestrin::base
