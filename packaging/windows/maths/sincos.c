// Linked into each program: MinGW's library keeps these three in one piece, and who needs
// one of them would get its sincos besides that of glibc. So all three are in one piece
// here too.

#include <math.h>

void glibc_sincos(double, double*, double*);

void sincos(double x, double* sine, double* cosine) { glibc_sincos(x, sine, cosine); }

void sincosf(float x, float* sine, float* cosine) {
  *sine = sinf(x);
  *cosine = cosf(x);
}

void sincosl(long double x, long double* sine, long double* cosine) {
  *sine = sinl(x);
  *cosine = cosl(x);
}
