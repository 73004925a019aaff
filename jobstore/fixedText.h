#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace kestrin::jobstore {

/// A text that can be a template argument, made of a string literal.
template <std::size_t size>
struct FixedText {
  // Implicit, as a literal stands where one of these is asked for.
  constexpr FixedText(const char (&literal)[size]) {  // NOLINT(google-explicit-constructor)
    std::copy_n(literal, size, characters.begin());
  }
  constexpr std::string_view View() const { return {characters.data(), size - 1}; }

  std::array<char, size> characters{};
};

/// The characters of the texts one after the other, and a 0 behind them.
template <FixedText... parts>
constexpr auto JoinedCharacters() {
  std::array<char, (parts.View().size() + ... + 1)> joined{};
  auto out = joined.begin();
  ((out = std::copy(parts.View().begin(), parts.View().end(), out)), ...);
  return joined;
}

template <FixedText... parts>
inline constexpr auto kJoinedCharacters = JoinedCharacters<parts...>();

/// The texts one after the other, joined by the compiler.
template <FixedText... parts>
inline constexpr std::string_view kJoined{kJoinedCharacters<parts...>.data(),
                                          kJoinedCharacters<parts...>.size() - 1};

}  // namespace kestrin::jobstore
