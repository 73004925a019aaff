#include "tools/sample/drive.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrin::sample {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kTurnSpeed = 0.6;  // of the working speed

/// Strings legs together, each from where the one before ended.
class Driver {
 public:
  explicit Driver(const Scenario& scenario) : scenario_(scenario) {}

  void JumpTo(Pose pose) { pose_ = pose; }
  Pose Here() const { return pose_; }

  void Work(double metres, double curvature = 0) {
    Leg leg = MakeLeg(metres, curvature, scenario_.speed);
    leg.working = true;
    Add(leg);
  }
  void Travel(double metres, double curvature = 0) {
    Add(MakeLeg(metres, curvature, scenario_.speed));
  }
  void Turn(double metres, double curvature = 0, double direction = 1) {
    Leg leg = MakeLeg(metres, curvature, direction * kTurnSpeed * scenario_.speed);
    leg.turn = true;
    Add(leg);
  }
  /// An arc by an angle in radians, positive to the right.
  void TurnBy(double angle, double radius) {
    Turn(std::abs(angle) * radius, (angle < 0 ? -1 : 1) / radius);
  }

  /// The next leg begins a stretch.
  void Begin() { begins_ = true; }
  /// From here on the headland is left out.
  void LeaveHeadland() { inner_ = true; }
  void WorkedUpTo(double east) { workedUpTo_ = east; }

  std::vector<Leg> Take() { return std::move(legs_); }

 private:
  Leg MakeLeg(double metres, double curvature, double speed) const {
    Leg leg;
    leg.start = pose_;
    leg.metres = metres;
    leg.curvature = curvature;
    leg.speed = speed;
    leg.begins = begins_;
    leg.inner = inner_;
    leg.workedUpTo = workedUpTo_;
    return leg;
  }

  void Add(const Leg& leg) {
    if (leg.metres <= 0) return;
    begins_ = false;
    pose_ = leg.At(leg.metres);
    legs_.push_back(leg);
  }

  const Scenario& scenario_;
  Pose pose_;
  bool begins_ = true;
  bool inner_ = false;
  double workedUpTo_ = -std::numeric_limits<double>::infinity();
  std::vector<Leg> legs_;
};

double Distance(Place a, Place b) { return std::hypot(b.east - a.east, b.north - a.north); }

double YawTo(Place a, Place b) { return std::atan2(b.east - a.east, b.north - a.north); }

/// Once round the outline, its corners rounded.
void Lap(Driver& driver, const Outline& outline, double turnRadius, bool working) {
  const std::size_t count = outline.size();
  std::vector<double> cuts(count);
  std::vector<double> turns(count);
  double radius = turnRadius;
  for (std::size_t i = 0; i < count; ++i) {
    const Place next = outline[(i + 1) % count];
    radius = std::min(radius, Distance(outline[i], next) / 4);
    turns[i] = std::remainder(
        YawTo(outline[i], next) - YawTo(outline[(i + count - 1) % count], outline[i]), 2 * kPi);
  }
  for (std::size_t i = 0; i < count; ++i) cuts[i] = radius * std::tan(turns[i] / 2);

  const double yaw = YawTo(outline[0], outline[1]);
  driver.JumpTo(
      {{outline[0].east + std::sin(yaw) * cuts[0], outline[0].north + std::cos(yaw) * cuts[0]},
       yaw});
  driver.Begin();
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t next = (i + 1) % count;
    const double straight = Distance(outline[i], outline[next]) - cuts[i] - cuts[next];
    const double arc = turns[next] * radius;
    if (working) {
      driver.Work(straight);
      driver.Work(arc, 1 / radius);
    } else {
      driver.Travel(straight);
      driver.Travel(arc, 1 / radius);
    }
  }
}

/// From the end of a pass to the line `step` metres beside it, facing back.
/// `side` is 1 for a turn to the right, -1 to the left.
void TurnRound(Driver& driver, const Scenario& scenario, double step, double side) {
  const double radius = scenario.turnRadius;
  if (scenario.turn == Turn::kSharp) {
    driver.TurnBy(side * kPi, step / 2);
  } else if (scenario.turn == Turn::kThreePoint && step < 2 * radius) {
    driver.TurnBy(side * kPi / 2, radius);
    driver.Turn(2 * radius - step, 0, -1);
    driver.TurnBy(side * kPi / 2, radius);
  } else if (step < 2 * radius) {
    const double away = std::acos((step / 2 + radius) / (2 * radius));
    driver.TurnBy(-side * away, radius);
    driver.TurnBy(side * (kPi + 2 * away), radius);
    driver.TurnBy(-side * away, radius);
  } else {
    driver.TurnBy(side * kPi / 2, radius);
    driver.Turn(step - 2 * radius);
    driver.TurnBy(side * kPi / 2, radius);
  }
}

struct Pass {
  double east;
  Span span;
};

/// The passes over the area, from west to east. The last one keeps to the area and
/// so overlaps the one before.
std::vector<Pass> PlanPasses(const Outline& area, double width, double step) {
  const auto byEast = [](Place a, Place b) { return a.east < b.east; };
  const auto [west, east] = std::minmax_element(area.begin(), area.end(), byEast);
  std::vector<Pass> passes;
  for (double at = west->east + width / 2; at - width / 2 < east->east; at += step) {
    const double line = std::max(std::min(at, east->east - width / 2), west->east + 0.1);
    const auto span = SpanAt(area, line);
    if (!span || span->north - span->south < 10) continue;
    // The implement stays down until its last section is over the headland.
    const double reach = 6 + width / 8;
    passes.push_back({line, {span->south - reach, span->north + reach}});
  }
  return passes;
}

void DrivePass(Driver& driver, const Scenario& scenario, const Pass& pass, const Pass* next,
               bool north) {
  driver.Begin();
  const double end = north ? pass.span.north : pass.span.south;
  driver.Work(std::abs(end - driver.Here().place.north));
  driver.Turn(scenario.backUp, 0, -1);
  driver.Turn(scenario.backUp);
  if (next == nullptr) return;
  const double nextStart = north ? next->span.north : next->span.south;
  const double ahead = north ? nextStart - end : end - nextStart;
  driver.Turn(std::max(ahead, 0.0));
  TurnRound(driver, scenario, next->east - pass.east, north ? 1 : -1);
  driver.Turn(std::max(-ahead, 0.0));
}

void Passes(Driver& driver, const Scenario& scenario, const Outline& area, double width) {
  const auto passes = PlanPasses(area, width, width * (1 - scenario.overlap));
  if (passes.empty()) return;
  driver.JumpTo({{passes[0].east, passes[0].span.south}, 0});
  bool north = true;
  for (std::size_t i = 0; i < passes.size(); ++i, north = !north) {
    if (i > 0) driver.WorkedUpTo(passes[i - 1].east + width / 2);
    const Pass* next = i + 1 < passes.size() ? &passes[i + 1] : nullptr;
    DrivePass(driver, scenario, passes[i], next, north);
  }
}

void Laps(Driver& driver, const Scenario& scenario, const Outline& field, double width) {
  Lap(driver, field, scenario.turnRadius, false);
  for (int i = 0; i < scenario.headlands; ++i) {
    const Outline lap = Inset(field, width * (0.5 + i * (1 - scenario.overlap)));
    if (!lap.empty()) Lap(driver, lap, scenario.turnRadius, true);
  }
}

void Spiral(Driver& driver, const Scenario& scenario, double area, double width) {
  const double outer = std::clamp(std::sqrt(area / kPi), 3 * width, 1000.0);
  driver.JumpTo({{0, 0}, 0});
  for (double radius = outer; radius > width / 2; radius -= width / 2 * (1 - scenario.overlap)) {
    driver.Work(kPi * radius, 1 / radius);
  }
}

void Eights(Driver& driver, double width) {
  const double radius = 2 * width;
  driver.JumpTo({{0, 0}, 0});
  for (int i = 0; i < 12; ++i) {
    if (i % 4 == 0) driver.Begin();
    driver.Work(radius);
    driver.Work(1.5 * kPi * radius, 1 / radius);
    driver.Work(2 * radius);
    driver.Work(1.5 * kPi * radius, -1 / radius);
    driver.Work(radius);
  }
}

}  // namespace

Pose Leg::At(double driven) const {
  const double way = speed < 0 ? -driven : driven;
  const double yaw = start.yaw + curvature * way;
  if (curvature == 0) {
    return {{start.place.east + std::sin(yaw) * way, start.place.north + std::cos(yaw) * way}, yaw};
  }
  return {{start.place.east + (std::cos(start.yaw) - std::cos(yaw)) / curvature,
           start.place.north + (std::sin(yaw) - std::sin(start.yaw)) / curvature},
          std::remainder(yaw, 2 * kPi)};
}

Drive PlanDrive(const Scenario& scenario, double width, std::int64_t rows) {
  const double metres = static_cast<double>(rows) / scenario.hertz * scenario.speed;
  Driver driver(scenario);
  if (scenario.pattern == Pattern::kSpiral) {
    Spiral(driver, scenario, metres * width, width);
    return {driver.Take(), {}, {}};
  }
  if (scenario.pattern == Pattern::kEights) {
    Eights(driver, width);
    return {driver.Take(), {}, {}};
  }
  // The boundary, turns and stops take about a quarter of the time.
  const Outline field = MakeField(std::max(metres * width * 0.75, 36 * width * width));
  Laps(driver, scenario, field, width);
  if (scenario.pattern == Pattern::kHeadland) return {driver.Take(), field, {}};
  Outline inner = Inset(field, width * scenario.headlands * (1 - scenario.overlap));
  if (inner.empty()) inner = field;
  driver.LeaveHeadland();
  Passes(driver, scenario, inner, width);
  return {driver.Take(), field, inner};
}

}  // namespace kestrin::sample
