// The functions themselves: under the names of the C library, each in the form that glibc
// would choose on the processor it runs on. The forms with fused multiplication round once
// where the others round twice, so the choice is part of the result.
//
// One choice is left out: processors that fuse in four operands only (AMD's of 2011 to
// 2014) get the form without.

#include <errno.h>
#include <math.h>

#define EXPORTED __attribute__((dllexport))

static int fused;

__attribute__((constructor)) static void LookAtProcessor(void) {
  __builtin_cpu_init();
  fused = __builtin_cpu_supports("fma") && __builtin_cpu_supports("avx2");
}

#define OF_PROCESSOR(name, parameters, arguments) \
  double name##_plain parameters;                 \
  double name##_fused parameters;                 \
  double name parameters { return fused ? name##_fused arguments : name##_plain arguments; }
OF_PROCESSOR(__sin, (double x), (x))
OF_PROCESSOR(__cos, (double x), (x))
OF_PROCESSOR(__tan, (double x), (x))
OF_PROCESSOR(__atan, (double x), (x))
OF_PROCESSOR(__expm1, (double x), (x))
OF_PROCESSOR(__log1p, (double x), (x))
OF_PROCESSOR(__ieee754_asin, (double x), (x))
OF_PROCESSOR(__ieee754_acos, (double x), (x))
OF_PROCESSOR(__ieee754_atan2, (double y, double x), (y, x))
OF_PROCESSOR(__ieee754_exp, (double x), (x))
OF_PROCESSOR(__ieee754_log, (double x), (x))
OF_PROCESSOR(__ieee754_pow, (double x, double y), (x, y))

void __sincos_plain(double, double*, double*);
void __sincos_fused(double, double*, double*);
EXPORTED void glibc_sincos(double x, double* sine, double* cosine) {
  (fused ? __sincos_fused : __sincos_plain)(x, sine, cosine);
}

// Of these there is one form.
double __ieee754_sinh(double);
double __ieee754_cosh(double);
double __ieee754_atanh(double);
double __asinh(double);
double __hypot(double, double);
double __cbrt(double);

// What the C library promises besides the result: arguments without one, and results that
// are no longer a number's, are told in errno.
static double Told(int finite_arguments, double result) {
  if (finite_arguments && !isfinite(result)) errno = isnan(result) ? EDOM : ERANGE;
  return result;
}

#define PUBLIC(name, inner) \
  EXPORTED double name(double x) { return Told(isfinite(x), inner(x)); }
PUBLIC(sin, __sin)
PUBLIC(cos, __cos)
PUBLIC(tan, __tan)
PUBLIC(asin, __ieee754_asin)
PUBLIC(acos, __ieee754_acos)
PUBLIC(atan, __atan)
PUBLIC(sinh, __ieee754_sinh)
PUBLIC(cosh, __ieee754_cosh)
PUBLIC(asinh, __asinh)
PUBLIC(atanh, __ieee754_atanh)
PUBLIC(exp, __ieee754_exp)
PUBLIC(expm1, __expm1)
PUBLIC(log, __ieee754_log)
PUBLIC(log1p, __log1p)
PUBLIC(cbrt, __cbrt)

#define PUBLIC_OF_TWO(name, inner) \
  EXPORTED double name(double x, double y) { return Told(isfinite(x) && isfinite(y), inner(x, y)); }
PUBLIC_OF_TWO(atan2, __ieee754_atan2)
PUBLIC_OF_TWO(pow, __ieee754_pow)
PUBLIC_OF_TWO(hypot, __hypot)
