#include "tools/sample/profiles.h"

#include "tools/sample/implements.h"

namespace kestrin::sample {
namespace {

Scenario Planter(std::string_view name, std::string_view description) {
  Scenario scenario;
  scenario.name = name;
  scenario.description = description;
  scenario.implements = {EvenImplement("Planter16", 16, 0.762, 4.2)};
  scenario.products = {{"Corn 105d", 33.5, 33.5, 0.1}};
  return scenario;
}

Scenario Sprayer() {
  Scenario scenario = Planter("sprayer", "16 sections of 2.25 m at 10 Hz, three products");
  scenario.hertz = 10;
  scenario.speed = 4.5;
  scenario.turnRadius = 9;
  scenario.headlands = 1;
  scenario.implements = {EvenImplement("Sprayer 36 m", 16, 2.25, 5)};
  scenario.products = {
      {"Herbicide A", 187, 187, 1}, {"Adjuvant", 1.4, 1.4, 0.05}, {"Water", 185, 185, 1}};
  return scenario;
}

Scenario Combine() {
  Scenario scenario = Planter("combine", "8 header sections, yields without any target");
  scenario.latitude = -35.12;
  scenario.longitude = 147.35;
  scenario.altitude = 182;
  scenario.speed = 1.8;
  scenario.implements = {EvenImplement("Header 40ft", 8, 1.524, -3)};
  scenario.products = {{"Wheat", 0, 4.2, 0.05}, {"Moisture", 0, 11.3, 0.1}};
  return scenario;
}

Scenario Spreader() {
  Scenario scenario = Planter("spreader", "absent and zero-width sections, two targets, one meter");
  scenario.speed = 3.6;
  scenario.turnRadius = 8;
  scenario.implements = {OddSpreader()};
  scenario.products = {{"Lime", 2500, 2500, 5}, {"Gypsum", 800, 0, 5}};
  return scenario;
}

Scenario Refill() {
  Scenario scenario = Planter("refill", "stops to refill every few passes, a new lot each time");
  scenario.refillRows = 1200;
  scenario.prescriptionRows = 0;
  scenario.changesProductAtRefill = true;
  return scenario;
}

Scenario Rollover() {
  Scenario scenario = Planter("rollover", "the GPS week ends in the middle of the job");
  scenario.crossesWeek = true;
  return scenario;
}

Scenario HeadlandOnly() {
  Scenario scenario = Planter("headland-only", "boundary and four headland laps, no passes");
  scenario.pattern = Pattern::kHeadland;
  scenario.headlands = 4;
  return scenario;
}

Scenario SharpTurns() {
  Scenario scenario = Planter("sharp-turns", "turns shorter than half the boom");
  scenario.turn = Turn::kSharp;
  scenario.turnRadius = 2;
  scenario.overlap = 0.25;
  return scenario;
}

Scenario ThreePoint() {
  Scenario scenario = Planter("three-point", "turns in three moves, one of them in reverse");
  scenario.turn = Turn::kThreePoint;
  scenario.turnRadius = 8;
  return scenario;
}

Scenario Spiral() {
  Scenario scenario = Planter("spiral", "from the outside in, one stretch");
  scenario.pattern = Pattern::kSpiral;
  scenario.rows = 6000;
  return scenario;
}

Scenario Crossing() {
  Scenario scenario = Planter("crossing", "figures of eight, over the own track again and again");
  scenario.pattern = Pattern::kEights;
  scenario.rows = 5000;
  return scenario;
}

Scenario Standstill() {
  Scenario scenario = Planter("standstill", "stops at which position and heading freeze");
  scenario.stopRows = 300;
  scenario.frozenWhenStopped = true;
  return scenario;
}

Scenario Tiny() {
  Scenario scenario = Planter("tiny", "five epochs");
  scenario.rows = 5;
  return scenario;
}

Scenario Unicode() {
  Scenario scenario = Planter("unicode", "names beyond ASCII, with quotes, and long ones");
  scenario.latitude = 48.21;
  scenario.longitude = 11.62;
  scenario.implements = {EvenImplement("Sämaschine 6 m", 12, 0.5)};
  scenario.products = {{"Grünroggen »früh«", 120, 120, 0.5},
                       {"冬小麦", 90, 90, 0.5},
                       {"O'Neil's \"mix\"", 15, 15, 0.1}};
  return scenario;
}

Scenario TwoImplements() {
  Scenario scenario = Planter("two-implements", "planter, then sprayer, then planter again");
  scenario.implements.push_back(EvenImplement("Sprayer 24 m", 12, 2));
  scenario.implements.push_back(scenario.implements.front());
  return scenario;
}

Scenario ZoneBorder() {
  Scenario scenario =
      Planter("zone-border", "the reference location moves into another UTM zone and back");
  scenario.longitude = -96.0008;
  scenario.references = {{150, 40}, {-60, -25}};
  return scenario;
}

Scenario NoImplement() {
  Scenario scenario = Planter("no-implement", "no implement was ever recorded");
  scenario.implements.clear();
  scenario.rows = 8000;
  return scenario;
}

Scenario Dropouts() {
  Scenario scenario = Planter(
      "dropouts", "lost fixes, unrecorded turns, equal time keys, epochs before every change row");
  scenario.dropouts = 0.08;
  scenario.turnsTakePart = false;
  scenario.repeatedKeys = 0.03;
  scenario.lateRows = 25;
  return scenario;
}

Scenario Jitter() {
  Scenario scenario =
      Planter("jitter",
              "what real machines do: jitter when they stand, wavering headings, reversing, jumps");
  scenario.hertz = 5;
  scenario.speed = 1.4;
  scenario.implements = {EvenImplement("Drill 18 m", 12, 1.5, 3)};
  scenario.backUp = 6;
  scenario.gpsNoise = 0.012;
  scenario.yawNoise = 0.012;
  scenario.stopRows = 400;
  scenario.stopSeconds = 10;
  scenario.repeatedKeys = 0.02;
  scenario.filedLate = 0.03;
  scenario.jumpRows = 500;
  return scenario;
}

Scenario AddingUp() {
  Scenario scenario =
      Planter("adding-up", "an implement row a minute: widths add up past any machine");
  scenario.hertz = 1;
  scenario.speed = 1.2;
  scenario.implementRows = 60;
  scenario.rows = 5000;
  return scenario;
}

}  // namespace

const std::vector<Scenario>& Scenarios() {
  static const std::vector<Scenario> scenarios{
      Planter("planter", "16 rows of 0.762 m, one product, 5 Hz (the usual one)"),
      Sprayer(),
      Combine(),
      Spreader(),
      Refill(),
      Rollover(),
      HeadlandOnly(),
      SharpTurns(),
      ThreePoint(),
      Spiral(),
      Crossing(),
      Standstill(),
      Tiny(),
      Unicode(),
      TwoImplements(),
      ZoneBorder(),
      NoImplement(),
      Dropouts(),
      Jitter(),
      AddingUp(),
  };
  return scenarios;
}

}  // namespace kestrin::sample
