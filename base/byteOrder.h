#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

/// Explicit byte encoders for formats that mix both orders. Each
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

/// An IEEE 754 double, least significant byte first. Copied, as compilers take the shifts of
/// several doubles in a row apart byte by byte, at twice the price of a vertex.
inline char* PutLeDouble(char* out, double value) {
  auto bytes = std::bit_cast<std::array<char, sizeof value>>(value);
  if constexpr (std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
  std::memcpy(out, bytes.data(), bytes.size());
  return out + bytes.size();
}

}  // namespace kestrin::base
