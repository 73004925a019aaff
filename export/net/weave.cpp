#include "export/net/weave.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <tuple>

#include "export/net/place.h"

namespace kestrin::net {
namespace {

using ground::Line;

/// How far to turn, against the clock, from looking back along a line's end to looking along
/// another's beginning.
double TurnBetween(const Line& ends, const Line& begins) {
  const geo::UtmPoint at = ends.back();
  const geo::UtmPoint before = ends[ends.size() - 2];
  const double backEast = before.easting - at.easting;
  const double backNorth = before.northing - at.northing;
  const double onEast = begins[1].easting - at.easting;
  const double onNorth = begins[1].northing - at.northing;
  const double turn =
      std::atan2(backEast * onNorth - backNorth * onEast, backEast * onEast + backNorth * onNorth);
  return turn > 0 ? turn : turn + 2 * std::numbers::pi;
}

class Weaver {
 public:
  explicit Weaver(std::vector<Chain> chains) : chains_(std::move(chains)), used_(chains_.size()) {
    std::ranges::sort(chains_, {}, [](const Chain& chain) { return kPlace(chain.points.front()); });
  }

  std::vector<Chain> Lines(base::RunHost& host) {
    for (std::size_t chain = 0; chain < chains_.size(); ++chain) {
      host.Yield();
      if (!used_[chain]) Follow(chain);
    }
    return std::move(lines_);
  }

 private:
  void Follow(std::size_t chain) {
    line_.clear();
    knots_.clear();
    passed_.clear();
    Tie(chains_[chain].points.front());
    while (true) {
      used_[chain] = true;
      const Line& points = chains_[chain].points;
      line_.insert(line_.end(), points.begin(), points.end() - 1);
      TieAt(points.back(), chains_[chain].piece);
      if (line_.empty()) return;
      chain = NextOf(points);
    }
  }

  void Tie(geo::UtmPoint point) {
    passed_.emplace(kPlace(point), line_.size());
    knots_.push_back(point);
  }

  /// Takes off what has come back to a point passed before.
  void TieAt(geo::UtmPoint point, std::size_t piece) {
    const auto before = passed_.find(kPlace(point));
    if (before == passed_.end()) {
      Tie(point);
      return;
    }
    const auto begin = line_.begin() + static_cast<std::ptrdiff_t>(before->second);
    Line closed(begin, line_.end());
    closed.push_back(point);
    line_.erase(begin, line_.end());
    lines_.push_back({piece, std::move(closed)});
    for (; knots_.back() != point; knots_.pop_back()) passed_.erase(kPlace(knots_.back()));
  }

  std::size_t NextOf(const Line& ends) const {
    std::size_t next = chains_.size();
    double least = HUGE_VAL;
    const auto place = kPlace(ends.back());
    const auto begins = [](const Chain& chain) { return kPlace(chain.points.front()); };
    for (auto chain = std::ranges::lower_bound(chains_, place, {}, begins);
         chain != chains_.end() && begins(*chain) == place; ++chain) {
      const auto index = static_cast<std::size_t>(chain - chains_.begin());
      if (used_[index]) continue;
      const double turn = TurnBetween(ends, chain->points);
      if (turn < least) next = index;
      least = std::min(least, turn);
    }
    if (next == chains_.size()) throw ground::GeometryError("an outline does not close");
    return next;
  }

  std::vector<Chain> chains_;
  std::vector<bool> used_;
  std::vector<Chain> lines_;
  Line line_;
  // The points where chains met on the way, and how many points of the line came before each.
  std::vector<geo::UtmPoint> knots_;
  std::map<std::tuple<double, double>, std::size_t> passed_;
};

}  // namespace

std::vector<Chain> WovenLines(std::vector<Chain> chains, base::RunHost& host) {
  return Weaver(std::move(chains)).Lines(host);
}

}  // namespace kestrin::net
