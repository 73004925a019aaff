#pragma once

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <string>
#include <type_traits>

/// What `mutate` writes in the place of operators and constants: each does what it stands for,
/// unless the environment's KESTRIN_MUTANT is its number. Then it does the wrong thing next to it.
/// So one build holds all mutants.
///
/// What the compiler computes stays right.

namespace kestrin::mutants {

inline constexpr std::size_t kMost = 1 << 15;

inline const int active = [] {
  const char* number = std::getenv("KESTRIN_MUTANT");
  return number == nullptr ? 0 : std::atoi(number);
}();

/// The mutants that a process came by. At its end it writes their numbers into a file of its own
/// that begins as KESTRIN_MUTANTS_SEEN says.
struct Seen {
  std::array<bool, kMost> numbers{};

  Seen() = default;
  Seen(const Seen&) = delete;
  Seen& operator=(const Seen&) = delete;
  ~Seen() {
    const char* path = std::getenv("KESTRIN_MUTANTS_SEEN");
    if (path == nullptr) return;
    std::ofstream out(path + std::to_string(getpid()));
    for (std::size_t i = 0; i < kMost; ++i) {
      if (numbers[i]) out << i << '\n';
    }
  }
};
inline Seen seen;

inline bool OnNow(int id) {
  seen.numbers[static_cast<std::size_t>(id)] = true;
  return id == active;
}
constexpr bool On(int id) { return !std::is_constant_evaluated() && OnNow(id); }

// Takes up two numbers.
#define KESTRIN_COMPARISON(NAME, OPERATOR, FIRST, SECOND) \
  template <class A, class B>                             \
  constexpr bool NAME(int id, const A& a, const B& b) {   \
    if constexpr (requires { a FIRST b, a SECOND b; }) {  \
      if (On(id)) return a FIRST b;                       \
      if (On(id + 1)) return a SECOND b;                  \
    }                                                     \
    return a OPERATOR b;                                  \
  }
KESTRIN_COMPARISON(Less, <, <=, >=)
KESTRIN_COMPARISON(LessEqual, <=, <, >)
KESTRIN_COMPARISON(Greater, >, >=, <=)
KESTRIN_COMPARISON(GreaterEqual, >=, >, <)
#undef KESTRIN_COMPARISON

#define KESTRIN_OPERATION(NAME, OPERATOR, OTHER)                         \
  template <class A, class B>                                            \
  constexpr auto NAME(int id, const A& a, const B& b) {                  \
    if constexpr (requires { a OTHER b; }) {                             \
      if (On(id)) return static_cast<decltype(a OPERATOR b)>(a OTHER b); \
    }                                                                    \
    return a OPERATOR b;                                                 \
  }
KESTRIN_OPERATION(Equal, ==, !=)
KESTRIN_OPERATION(Unequal, !=, ==)
KESTRIN_OPERATION(Plus, +, -)
KESTRIN_OPERATION(Minus, -, +)
KESTRIN_OPERATION(Times, *, /)
KESTRIN_OPERATION(Over, /, *)
KESTRIN_OPERATION(Modulo, %, /)
KESTRIN_OPERATION(ShiftLeft, <<, >>)
KESTRIN_OPERATION(ShiftRight, >>, <<)
KESTRIN_OPERATION(And, &, |)
KESTRIN_OPERATION(Or, |, &)
#undef KESTRIN_OPERATION

constexpr bool Not(int id, bool value) { return On(id) != value; }

template <class T>
constexpr T Negative(int id, T value) {
  return On(id) ? static_cast<T>(-value) : value;
}

template <class T>
constexpr T& Up(int id, T& value) {
  return On(id) ? --value : ++value;
}
template <class T>
constexpr T& Down(int id, T& value) {
  return On(id) ? ++value : --value;
}
template <class T>
constexpr T UpAfter(int id, T& value) {
  return On(id) ? value-- : value++;
}
template <class T>
constexpr T DownAfter(int id, T& value) {
  return On(id) ? value++ : value--;
}

template <class T>
constexpr T Wrong(T value, bool more) {
  if constexpr (std::is_same_v<T, bool>) return !value;
  if constexpr (std::is_floating_point_v<T>) return value == 0 ? T(1) : value * T(1.001);
  return static_cast<T>(more ? value + 1 : value - 1);
}

/// A constant. Takes up two numbers, but for a truth value and a fraction.
template <class T>
constexpr T Constant(int id, T value) {
  if (On(id)) return Wrong(value, true);
  if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
    if (On(id + 1)) return Wrong(value, false);
  }
  return value;
}
/// The same for what began as constexpr and is so no more.
template <class T>
T ConstantNow(int id, T value) {
  OnNow(id);
  return Constant(id, value);
}

template <int id, std::size_t size>
const char (&WrongText(const char (&text)[size]))[size] {
  static char wrong[size];
  std::copy_n(text, size, wrong);
  ++wrong[0];
  return wrong;
}
template <int id, std::size_t size>
constexpr const char (&Text(const char (&text)[size]))[size] {
  if (On(id)) return WrongText<id>(text);
  return text;
}
template <int id, std::size_t size>
const char (&TextNow(const char (&text)[size]))[size] {
  OnNow(id);
  return Text<id>(text);
}

struct Min {
  int id;
  template <class T>
  constexpr T operator()(const T& a, const T& b) const {
    return On(id) ? std::max(a, b) : std::min(a, b);
  }
  template <class T>
  constexpr T operator()(std::initializer_list<T> all) const {
    return On(id) ? std::max(all) : std::min(all);
  }
};
struct Max {
  int id;
  template <class T>
  constexpr T operator()(const T& a, const T& b) const {
    return On(id) ? std::min(a, b) : std::max(a, b);
  }
  template <class T>
  constexpr T operator()(std::initializer_list<T> all) const {
    return On(id) ? std::min(all) : std::max(all);
  }
};

}  // namespace kestrin::mutants
