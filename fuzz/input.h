#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrin::fuzz {

/// A target's input, taken for decisions from its front to its end; behind the end all are 0.
class Input {
 public:
  explicit Input(std::string_view bytes) : bytes_(bytes) {}

  bool Ended() const { return bytes_.empty(); }

  std::uint64_t Number(int size) {
    std::uint64_t number = 0;
    for (; size > 0; --size) {
      number = number << 8 | (Ended() ? 0 : static_cast<unsigned char>(bytes_.front()));
      if (!Ended()) bytes_.remove_prefix(1);
    }
    return number;
  }

  /// One of the numbers from 0 on.
  std::size_t Below(std::size_t count) { return Number(count > 256 ? 2 : 1) % count; }

  double Double() { return std::bit_cast<double>(Number(8)); }

  /// At most so many bytes, fewer than 256.
  std::string_view Text(std::size_t most) { return Take(Below(most + 1)); }
  std::string_view Rest() { return Take(bytes_.size()); }

 private:
  std::string_view Take(std::size_t size) {
    const std::string_view taken = bytes_.substr(0, size);
    bytes_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view bytes_;
};

/// Ends the run with a report unless a promise holds.
inline void Require(bool holds, const char* promise) {
  if (!holds) throw std::logic_error(std::string("broken: ") + promise);
}

/// A target: what every program here does with an input. What it throws is a finding.
void Run(std::string_view bytes);

}  // namespace kestrin::fuzz
