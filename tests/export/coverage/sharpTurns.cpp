#include "tests/export/coverage/sharpTurns.h"

#include <array>
#include <cmath>
#include <numbers>

namespace kestrin::test {
namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr geo::UtmPoint kField{512345.678, 4456789.123};

/// Degrees forward, back and forward again, all to one side.
constexpr std::array<std::array<double, 3>, 3> kThreePoint{
    {{40, 30, 40}, {70, 20, 40}, {40, 20, 70}}};

std::string Named(const std::string& kind, double width, double radius, double yaw, double step) {
  return kind + " width " + std::to_string(width) + " radius " + std::to_string(radius) + " yaw " +
         std::to_string(yaw) + " step " + std::to_string(step);
}

/// One of each kind of turn, to either side.
void AddTurns(std::vector<SharpTurn>& turns, double width, double radius, double yaw, double step) {
  const auto add = [&](const std::string& kind, const Driver& driver) {
    turns.push_back({Named(kind, width, radius, yaw, step), driver.Rows()});
  };
  const auto drive = [&] { return Driver(kField, yaw, width, step); };
  for (const double side : {1.0, -1.0}) {
    add("right angle",
        drive().Straight(2 * width).Turn(side * 90 * kDegree, radius).Straight(2 * width));
    add("blunt", drive().Straight(width).Turn(side * 35 * kDegree, radius).Straight(width));
    add("acute",
        drive().Straight(4 * width).Turn(side * 140 * kDegree, radius).Straight(4 * width));
    add("very acute",
        drive().Straight(8 * width).Turn(side * 160 * kDegree, radius).Straight(8 * width));
    add("half circle", drive()
                           .Straight(width)
                           .Turn(side * 90 * kDegree, radius)
                           .Straight(1.1 * width)
                           .Turn(side * 90 * kDegree, radius)
                           .Straight(3 * width));
    add("jog", drive()
                   .Straight(2 * width)
                   .Turn(side * 90 * kDegree, radius)
                   .Straight(0.3 * width)
                   .Turn(-side * 90 * kDegree, radius)
                   .Straight(2 * width));
    add("short first leg",
        drive().Straight(0.3 * width).Turn(side * 90 * kDegree, radius).Straight(12 * width));
    for (const auto& [in, back, out] : kThreePoint) {
      add("three-point", drive()
                             .Straight(6 * width)
                             .Turn(side * in * kDegree, radius)
                             .TurnBack(side * back * kDegree, radius)
                             .Turn(side * out * kDegree, radius)
                             .Straight(9 * width));
    }
  }
  for (const double spacing : {1.3, 2.0}) {
    add("spiral", drive().Spiral(5, width * spacing, radius));
  }
}

}  // namespace

Driver& Driver::Straight(double metres) {
  const int steps = static_cast<int>(std::ceil(metres / step_));
  for (int i = 0; i < steps; ++i) {
    at_.easting += metres / steps * std::sin(yaw_);
    at_.northing += metres / steps * std::cos(yaw_);
    Row();
  }
  return *this;
}

Driver& Driver::Turn(double angle, double radius) {
  if (radius > 0) return Arc(angle, angle > 0 ? radius : -radius);
  yaw_ += angle;
  return *this;
}

Driver& Driver::TurnBack(double angle, double radius) {
  return Arc(angle, angle > 0 ? -radius : radius);
}

Driver& Driver::Arc(double angle, double toCentre) {
  const int steps = static_cast<int>(std::ceil(std::fabs(angle * toCentre) / step_)) + 1;
  const geo::UtmPoint centre{at_.easting + toCentre * std::cos(yaw_),
                             at_.northing - toCentre * std::sin(yaw_)};
  const double from = yaw_;
  for (int i = 1; i <= steps; ++i) {
    yaw_ = from + angle * i / steps;
    at_ = {centre.easting - toCentre * std::cos(yaw_), centre.northing + toCentre * std::sin(yaw_)};
    Row();
  }
  return *this;
}

Driver& Driver::Spiral(double rounds, double spacing, double fromRadius) {
  const double growth = spacing / (2 * std::numbers::pi);
  double radius = fromRadius;
  const double side = yaw_;
  const geo::UtmPoint centre{at_.easting - radius * std::sin(side),
                             at_.northing - radius * std::cos(side)};
  rows_.clear();
  for (double angle = 0; angle < rounds * 2 * std::numbers::pi;) {
    radius = fromRadius + growth * angle;
    at_ = {centre.easting + radius * std::sin(side + angle),
           centre.northing + radius * std::cos(side + angle)};
    // Ahead along the spiral: around, and outwards by the growth.
    yaw_ = side + angle + std::atan2(radius, growth);
    Row();
    angle += step_ / std::hypot(radius, growth);
  }
  return *this;
}

std::vector<SharpTurn> SharpTurns(double width, double share) {
  std::vector<SharpTurn> turns;
  AddTurns(turns, width, share * width / 2, 0, width / 7);
  AddTurns(turns, width, share * width / 2, 0.7, width / 18);
  return turns;
}

}  // namespace kestrin::test
