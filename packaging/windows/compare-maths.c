// Prints a digest of what each maths function returns over many arguments: the same text
// wherever the functions are the same to the last bit.

#include <inttypes.h>
#include <math.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

void sincos(double, double*, double*);

static uint64_t state;

static uint64_t Random(void) {
  state ^= state << 13;
  state ^= state >> 7;
  state ^= state << 17;
  return state;
}

// In [-1, 1].
static double Unit(void) { return (double)(int64_t)Random() / 0x1p63; }

// Ordinary arguments, and now and then one of any size.
static double Argument(double range) {
  if (Random() % 16 != 0) return Unit() * range;
  const uint64_t bits = Random();
  double any;
  memcpy(&any, &bits, sizeof any);
  return any;
}

static uint64_t Added(uint64_t digest, double result) {
  // What a number that is none looks like is not promised.
  if (isnan(result)) result = 0.5;
  uint64_t bits;
  memcpy(&bits, &result, sizeof bits);
  return (digest ^ bits) * 0x100000001b3;
}

enum { kCalls = 2000000 };

static void OfOne(const char* name, double (*function)(double), double range) {
  uint64_t digest = 0xcbf29ce484222325;
  state = 0x9e3779b97f4a7c15;
  for (int i = 0; i < kCalls; ++i) digest = Added(digest, function(Argument(range)));
  printf("%-6s %016" PRIx64 "\n", name, digest);
}

static void OfTwo(const char* name, double (*function)(double, double), double range) {
  uint64_t digest = 0xcbf29ce484222325;
  state = 0x9e3779b97f4a7c15;
  for (int i = 0; i < kCalls; ++i) {
    const double first = Argument(range);
    digest = Added(digest, function(first, Argument(range)));
  }
  printf("%-6s %016" PRIx64 "\n", name, digest);
}

static double SineOfBoth(double x) {
  double sine, cosine;
  sincos(x, &sine, &cosine);
  return sine;
}

static double CosineOfBoth(double x) {
  double sine, cosine;
  sincos(x, &sine, &cosine);
  return cosine;
}

int main(void) {
  OfOne("sin", sin, 10);
  OfOne("cos", cos, 10);
  OfOne("sincos", SineOfBoth, 10);
  OfOne("sincos", CosineOfBoth, 10);
  OfOne("tan", tan, 10);
  OfOne("asin", asin, 1);
  OfOne("acos", acos, 1);
  OfOne("atan", atan, 10);
  OfOne("sinh", sinh, 10);
  OfOne("cosh", cosh, 10);
  OfOne("asinh", asinh, 10);
  OfOne("atanh", atanh, 1);
  OfOne("exp", exp, 10);
  OfOne("expm1", expm1, 10);
  OfOne("log", log, 10);
  OfOne("log1p", log1p, 1);
  OfOne("cbrt", cbrt, 10);
  OfTwo("atan2", atan2, 10);
  OfTwo("pow", pow, 10);
  OfTwo("hypot", hypot, 10);
}
