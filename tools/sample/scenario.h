#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jobstore/gpsKey.h"
#include "jobstore/queries.h"
#include "tools/sample/field.h"

namespace kestrin::sample {

inline constexpr std::int64_t kMsecPerWeek = 604800000;

/// How the field is driven.
enum class Pattern {
  kField,     ///< boundary, headland laps, then passes to and fro
  kHeadland,  ///< boundary and headland laps only
  kSpiral,    ///< from the outside in, one long stretch
  kEights,    ///< over the own track again and again
};

/// How the vehicle gets from one pass to the next.
enum class Turn {
  kBulb,        ///< swings out and comes back
  kSharp,       ///< turns so short that the boom's inner end moves backwards
  kThreePoint,  ///< forward, reverse, forward
};

struct ImplementSetup {
  std::string name;
  double number = 0;
  std::vector<jobstore::Section> sections;
};

/// What a product slot holds and how its rate behaves.
struct Product {
  std::string name;
  double target = 0;     ///< desired rate; 0: none is set
  double level = 0;      ///< what the actual rate hunts around; 0: not measured
  double quantum = 0.1;  ///< actual rates come in steps of this
};

/// Where a job takes place, with what, and what happens on the way. Fractions are
/// parts of the job's rows.
struct Scenario {
  std::string_view name;
  std::string_view description;

  std::int64_t rows = 20000;  ///< when the caller names no number
  int hertz = 5;
  double speed = 2.5;       ///< metres per second at work
  double latitude = 41.93;  ///< degrees
  double longitude = -93.61;
  double altitude = 310;
  jobstore::GpsKey start{1345, 205200000};
  bool crossesWeek = false;  ///< `start` moves so that the week ends on the way

  Pattern pattern = Pattern::kField;
  Turn turn = Turn::kBulb;
  double turnRadius = 6;
  double overlap = 0.04;  ///< of the implement's width, between passes
  int headlands = 2;
  double backUp = 0;  ///< metres in reverse at the end of each pass

  std::vector<ImplementSetup> implements;  ///< evenly spread over the job
  std::int64_t implementRows = 0;          ///< rows between repetitions of the implement's row
  std::vector<Product> products;           ///< up to three
  std::int64_t refillRows = 6000;          ///< rows between refills
  int refillSeconds = 40;
  std::int64_t prescriptionRows = 2500;  ///< rows between desired-rate changes
  bool changesProductAtRefill = false;
  int lateRows = 0;  ///< rows before the first change rows

  /// Where the origin moves to, in metres from the first, evenly spread.
  std::vector<Place> references;

  bool turnsTakePart = true;       ///< rows of turns carry the value 8192
  double dropouts = 0.002;         ///< chance of a row without the value 8192
  double repeatedKeys = 0;         ///< chance of a row with its predecessor's time
  double filedLate = 0;            ///< chance of a row that is filed behind some of the next ones
  double gpsNoise = 0.008;         ///< metres
  double yawNoise = 0.002;         ///< radians, while driving
  std::int64_t jumpRows = 0;       ///< rows between jumps of 100 m, which soon come back
  bool frozenWhenStopped = false;  ///< no noise at standstill
  std::int64_t stopRows = 4000;    ///< rows between short stops
  int stopSeconds = 8;
};

}  // namespace kestrin::sample
