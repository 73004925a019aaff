#include "geo/proj_api.h"

#include <proj.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string_view>

#include "geo/perThread.h"
#include "geo/projDefinition.h"
#include "geo/projOperations.h"

namespace kestrin::geo {
namespace {

/// The two texts read last. Callers ask for the same two in turn, so the one that
/// was not asked for last is tried first.
class RecentDefinitions {
 public:
  static constexpr int kNoSystem = -1;

  /// The zone of a text's system (CoordinateSystem::zone), kNoSystem when it has none.
  int ZoneOf(const char* text) {
    Entry& other = entries_[1 - last_];
    if (std::strcmp(other.text.data(), text) == 0) {
      last_ = 1 - last_;
      return other.zone;
    }
    const Entry& last = entries_[last_];
    return std::strcmp(last.text.data(), text) == 0 ? last.zone : Parse(text, other);
  }

 private:
  struct Entry {
    std::array<char, 60> text{};
    int zone = kNoSystem;  // of the empty text, which stands here until taken
  };

  int Parse(std::string_view text, Entry& place) {
    const auto system = ParseDefinition(text);
    if (!system) return kNoSystem;
    if (text.size() < place.text.size()) {
      *std::copy(text.begin(), text.end(), place.text.begin()) = '\0';
      place.zone = system->zone;
      last_ = 1 - last_;
    }
    return system->zone;
  }

  std::array<Entry, 2> entries_;
  std::size_t last_ = 0;
};

/// Handles: a system's zone + 1, and how many of it are out. Equal definitions have
/// equal handles, so that making one is no more than counting.
class Handles {
 public:
  std::int32_t Make(int zone) {
    ++out_[static_cast<std::size_t>(zone)];
    return zone + 1;
  }

  bool Holds(std::int32_t handle) const {
    return handle >= 1 && handle <= CoordinateSystem::kZones + 1 && out_[Place(handle)] > 0;
  }

  /// The zone of a handle that is held.
  static int ZoneOf(std::int32_t handle) { return handle - 1; }

  void Free(std::int32_t handle) {
    if (Holds(handle)) --out_[Place(handle)];
  }

 private:
  static std::size_t Place(std::int32_t handle) { return static_cast<std::size_t>(handle - 1); }

  std::array<std::uint64_t, CoordinateSystem::kZones + 1> out_{};
};

struct ThreadState {
  RecentDefinitions definitions;
  Handles handles;
  ProjOperations operations;
};

ThreadState& ThisThread() { return PerThread<ThreadState>(); }

// PROJ itself lets a NaN through as a result, and says HUGE_VAL on an error.
bool IsPosition(double x, double y) { return std::isfinite(x) && std::isfinite(y); }

/// Converts a point in place and says whether PROJ could.
bool Step(PJ* operation, PJ_DIRECTION direction, double& x, double& y) {
  const PJ_COORD result = proj_trans(operation, direction, PJ_COORD{{x, y, 0, 0}});
  x = result.v[0];
  y = result.v[1];
  return IsPosition(x, y);
}

/// The way from one system to the other; a null step is left out.
struct Route {
  PJ* inverse = nullptr;
  PJ* forward = nullptr;

  bool Convert(double& x, double& y) const {
    return IsPosition(x, y) && (inverse == nullptr || Step(inverse, PJ_INV, x, y)) &&
           (forward == nullptr || Step(forward, PJ_FWD, x, y));
  }

  /// The reason of the last failure, forgotten in PROJ.
  std::int32_t TakeError() const {
    for (PJ* step : {inverse, forward}) {
      const int error = step == nullptr ? 0 : proj_errno_reset(step);
      if (error != 0) return error;
    }
    return PROJ_ERR_COORD_TRANSFM_INVALID_COORD;
  }
};

}  // namespace

std::int32_t pjInitPlus(const char* definition) {
  if (definition == nullptr) return 0;
  ThreadState& state = ThisThread();
  const int zone = state.definitions.ZoneOf(definition);
  if (zone == RecentDefinitions::kNoSystem) return 0;
  if (zone != CoordinateSystem::kGeographic && state.operations.OfZone(zone) == nullptr) return 0;
  return state.handles.Make(zone);
}

std::int32_t pjTransform(std::int32_t source, std::int32_t destination, std::int32_t pointCount,
                         std::int32_t pointOffset, double* x, double* y, double*) {
  ThreadState& state = ThisThread();
  if (!state.handles.Holds(source) || !state.handles.Holds(destination)) {
    return PROJ_ERR_OTHER_API_MISUSE;
  }
  const int from = Handles::ZoneOf(source);
  const int to = Handles::ZoneOf(destination);

  Route route;
  if (from != CoordinateSystem::kGeographic) route.inverse = state.operations.OfZone(from);
  if (to != CoordinateSystem::kGeographic) route.forward = state.operations.OfZone(to);
  for (std::int32_t i = 0; i < pointCount; ++i, x += pointOffset, y += pointOffset) {
    double convertedX = *x;
    double convertedY = *y;
    if (!route.Convert(convertedX, convertedY)) return route.TakeError();
    *x = convertedX;
    *y = convertedY;
  }
  return 0;
}

void pjFree(std::int32_t handle) { ThisThread().handles.Free(handle); }

}  // namespace kestrin::geo
