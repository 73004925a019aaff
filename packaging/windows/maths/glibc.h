#pragma once

// What glibc's sources of its maths functions expect of the library around them, where
// there is none: included before each of them when they are compiled for Windows. None of
// it touches a result; rounding is to nearest in all programs of ours, and what is only
// there to raise a flag of the processor is left out.

#include <errno.h>
#include <fenv.h>
#include <float.h>
#include <math.h>
#include <stdint.h>

// Symbols: names that glibc would make besides the one it defines.
#define SECTION
#define attribute_hidden
#define libm_alias_double(from, to)
#define libm_alias_finite(from, to)
#define strong_alias(from, to)
#define hidden_def(name)
#define LIBM_SVID_COMPAT 0

// The compiler.
#define __glibc_likely(condition) __builtin_expect(!!(condition), 1)
#define __glibc_unlikely(condition) __builtin_expect(!!(condition), 0)
#undef __always_inline
#define __always_inline inline __attribute__((always_inline))
#define DIAG_PUSH_NEEDS_COMMENT
#define DIAG_POP_NEEDS_COMMENT
#define DIAG_IGNORE_O_NEEDS_COMMENT(version, option)
#define DIAG_IGNORE_Os_NEEDS_COMMENT(version, option)
#define math_opt_barrier(x)   \
  ({                          \
    double kept = (x);        \
    __asm__("" : "+x"(kept)); \
    kept;                     \
  })
#define math_force_eval(x)                  \
  ({                                        \
    double kept = (x);                      \
    __asm__ __volatile__("" : : "x"(kept)); \
  })

// The processor: doubles are never wider than they look, and lie low word first.
#define math_narrow_eval(x) (x)
#define USE_FMAX_BUILTIN 0
#define USE_FMIN_BUILTIN 0
#define HIGH_ORDER_BIT_IS_SET_FOR_SNAN 0
#define LITTLE_ENDI 1
#define HIGH_HALF 1
#define LOW_HALF 0

// Flags and rounding.
#define math_check_force_underflow(x) ((void)0)
#define math_check_force_underflow_nonneg(x) ((void)0)
#define SET_RESTORE_ROUND(mode) ((void)0)
#define SET_RESTORE_ROUND_53BIT(mode) ((void)0)
#define __set_errno(value) (errno = (value))

// Kinds of number, in the order that the sources compare them by.
#undef FP_ZERO
#undef fpclassify
#define FP_ZERO 2
#define fpclassify(x) __builtin_fpclassify(0, 1, 4, 3, FP_ZERO, x)

// A double by its words.
typedef union {
  double value;
  struct {
    uint32_t low, high;
  } words;
  uint64_t whole;
} DoubleWords;
#define EXTRACT_WORDS(high_, low_, d) \
  do {                                \
    const DoubleWords split = {(d)};  \
    (high_) = split.words.high;       \
    (low_) = split.words.low;         \
  } while (0)
#define GET_HIGH_WORD(i, d)          \
  do {                               \
    const DoubleWords split = {(d)}; \
    (i) = split.words.high;          \
  } while (0)
#define GET_LOW_WORD(i, d)           \
  do {                               \
    const DoubleWords split = {(d)}; \
    (i) = split.words.low;           \
  } while (0)
#define EXTRACT_WORDS64(i, d)        \
  do {                               \
    const DoubleWords split = {(d)}; \
    (i) = split.whole;               \
  } while (0)
#define INSERT_WORDS64(d, i) \
  do {                       \
    DoubleWords split;       \
    split.whole = (i);       \
    (d) = split.value;       \
  } while (0)
#define SET_HIGH_WORD(d, i)    \
  do {                         \
    DoubleWords split = {(d)}; \
    split.words.high = (i);    \
    (d) = split.value;         \
  } while (0)

// The functions that call each other.
#define __ldexp ldexp
double __frexp(double, int*);
double __ieee754_exp(double);
double __ieee754_log(double);
double __expm1(double);
double __log1p(double);
int __branred(double, double*, double*);
