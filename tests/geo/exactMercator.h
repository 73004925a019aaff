#pragma once

#include <cmath>
#include <complex>
#include <numbers>

namespace kestrin::test {

/// The UTM projection on GRS80 from its definition, sharing no formula with the
/// series of a projection library: the conformal map that keeps the central
/// meridian true, so the meridian arc continued to complex latitudes. In long
/// double, good to well below a nanometre within 20 degrees of the meridian.
class ExactMercator {
 public:
  struct Point {
    double easting;
    double northing;
  };

  /// Degrees to metres; no false northing south of the equator.
  static Point Project(double latitude, double longitude, int zone) {
    const Real central = 6.0L * zone - 183;
    const Complex isometric(IsometricLatitude(static_cast<Real>(latitude) * kRadians),
                            (static_cast<Real>(longitude) - central) * kRadians);
    const Complex arc = kScale * MeridianArc(LatitudeOf(isometric));
    return {static_cast<double>(500000 + arc.imag()), static_cast<double>(arc.real())};
  }

 private:
  using Real = long double;
  using Complex = std::complex<long double>;

  static constexpr Real kRadians = std::numbers::pi_v<Real> / 180;
  static constexpr Real kScale = 0.9996L;
  static constexpr Real kAxis = 6378137;
  static constexpr Real kFlattening = 1 / 298.257222101L;
  static constexpr Real kEccentricity2 = kFlattening * (2 - kFlattening);

  static Real IsometricLatitude(Real latitude) {
    const Real e = std::sqrt(kEccentricity2);
    return std::asinh(std::tan(latitude)) - e * std::atanh(e * std::sin(latitude));
  }

  /// The complex latitude of a complex isometric latitude; each turn gains two
  /// digits.
  static Complex LatitudeOf(Complex isometric) {
    const Real e = std::sqrt(kEccentricity2);
    Complex latitude = Gudermann(isometric);
    for (int turn = 0; turn < 20; ++turn) {
      latitude = Gudermann(isometric + e * std::atanh(e * std::sin(latitude)));
    }
    return latitude;
  }

  static Complex Gudermann(Complex isometric) {
    return Real{2} * std::atan(std::tanh(isometric / Real{2}));
  }

  /// The arc from the equator, by five-point Gauss quadrature over 40 pieces.
  static Complex MeridianArc(Complex latitude) {
    constexpr int kPieces = 40;
    const Complex half = latitude / Real{2 * kPieces};
    Complex sum = 0;
    for (int piece = 0; piece < kPieces; ++piece) {
      sum += GaussSum(half * Real(2 * piece + 1), half);
    }
    return sum * half;
  }

  static Complex GaussSum(Complex middle, Complex half) {
    const Real root = std::sqrt(Real{70});
    const Real inner = std::sqrt(5 - 2 * std::sqrt(Real{10} / 7)) / 3;
    const Real outer = std::sqrt(5 + 2 * std::sqrt(Real{10} / 7)) / 3;
    const auto both = [&](Real node) {
      return Radius(middle - half * node) + Radius(middle + half * node);
    };
    return Radius(middle) * (Real{128} / 225) + both(inner) * ((322 + 13 * root) / 900) +
           both(outer) * ((322 - 13 * root) / 900);
  }

  /// The meridian's radius of curvature.
  static Complex Radius(Complex latitude) {
    const Complex sine = std::sin(latitude);
    const Complex w2 = Real{1} - kEccentricity2 * sine * sine;
    return kAxis * (1 - kEccentricity2) / (w2 * std::sqrt(w2));
  }
};

}  // namespace kestrin::test
