#include "export/net/seams.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "export/ground/planeGeometry.h"
#include "export/net/place.h"

namespace kestrin::net {

using ground::Line;

bool Seams::IsOn(double coordinate) const { return std::fmod(coordinate, side_) == 0; }

void Seams::Take(const ground::Piece& piece) {
  const std::size_t number = joinedTo_.size();
  joinedTo_.push_back(number);
  Take(number, piece.shell);
  for (const Line& hole : piece.holes) Take(number, hole);
}

void Seams::Take(std::size_t piece, const Line& line) {
  for (const geo::UtmPoint& point : line) {
    if (IsOn(point.easting)) places_.emplace_back(true, point.easting, point.northing);
    if (IsOn(point.northing)) places_.emplace_back(false, point.northing, point.easting);
  }
  outlines_.push_back({{piece, line}, {}});
}

void Seams::GivePointsAcross(Line& line) const {
  Line all;
  all.reserve(line.size());
  for (std::size_t i = 0; i < line.size(); ++i) {
    const geo::UtmPoint at = line[i];
    all.push_back(at);
    if (i + 1 == line.size()) break;
    const geo::UtmPoint next = line[i + 1];
    const bool north = at.easting == next.easting && IsOn(at.easting);
    if (!north && !(at.northing == next.northing && IsOn(at.northing))) continue;
    const auto place = [&](geo::UtmPoint point) {
      return north ? Place(true, point.easting, point.northing)
                   : Place(false, point.northing, point.easting);
    };
    const Place from = place(at);
    const Place to = place(next);
    const auto begin = std::ranges::upper_bound(places_, std::min(from, to));
    const auto end = std::lower_bound(begin, places_.end(), std::max(from, to));
    const std::size_t first = all.size();
    for (auto between = begin; between != end; ++between) {
      const double along = std::get<2>(*between);
      all.push_back(north ? geo::UtmPoint{at.easting, along} : geo::UtmPoint{along, at.northing});
    }
    if (to < from) {
      std::reverse(all.begin() + static_cast<std::ptrdiff_t>(first), all.end());
    }
  }
  line = std::move(all);
}

void Seams::FindStretches(std::size_t outline, std::vector<Stretch>& stretches) const {
  const Line& line = outlines_[outline].chain.points;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    if (line[i].easting == line[i + 1].easting && IsOn(line[i].easting)) {
      const double from = std::min(line[i].northing, line[i + 1].northing);
      stretches.push_back({{true, line[i].easting, from}, outline, i});
    } else if (line[i].northing == line[i + 1].northing && IsOn(line[i].northing)) {
      const double from = std::min(line[i].easting, line[i + 1].easting);
      stretches.push_back({{false, line[i].northing, from}, outline, i});
    }
  }
}

std::size_t Seams::FirstJoined(std::size_t piece) {
  while (joinedTo_[piece] != piece) piece = joinedTo_[piece] = joinedTo_[joinedTo_[piece]];
  return piece;
}

void Seams::DropCommonStretches(base::RunHost& host) {
  std::vector<Stretch> stretches;
  for (std::size_t outline = 0; outline < outlines_.size(); ++outline) {
    host.Yield();
    FindStretches(outline, stretches);
    outlines_[outline].gone.resize(outlines_[outline].chain.points.size());
  }
  std::ranges::stable_sort(stretches, {}, &Stretch::from);
  for (std::size_t i = 0; i + 1 < stretches.size(); ++i) {
    if (stretches[i].from != stretches[i + 1].from) continue;
    for (const Stretch& side : {stretches[i], stretches[i + 1]}) {
      outlines_[side.line].gone[side.index] = true;
    }
    joinedTo_[FirstJoined(outlines_[stretches[i].line].chain.piece)] =
        FirstJoined(outlines_[stretches[i + 1].line].chain.piece);
    ++i;
  }
}

void Seams::FindTouches(base::RunHost& host) {
  for (const Outline& outline : outlines_) {
    host.Yield();
    const Line& line = outline.chain.points;
    touches_.insert(touches_.end(), line.begin() + 1, line.end());
  }
  std::ranges::sort(touches_, {}, kPlace);
  std::size_t kept = 0;
  for (std::size_t i = 0; i + 1 < touches_.size(); ++i) {
    if (touches_[i] == touches_[i + 1]) touches_[kept++] = touches_[i];
  }
  touches_.resize(kept);
}

bool Seams::IsKnot(geo::UtmPoint point) const {
  return IsOn(point.easting) || IsOn(point.northing) ||
         std::ranges::binary_search(touches_, kPlace(point), {}, kPlace);
}

void Seams::CutIntoChains(const Outline& outline, std::vector<Chain>& chains) const {
  const Line& line = outline.chain.points;
  std::size_t start = 0;
  while (start + 1 < line.size() && !IsKnot(line[start])) ++start;
  if (start + 1 == line.size()) {
    chains.push_back(outline.chain);
    return;
  }
  const std::size_t count = line.size() - 1;
  for (std::size_t step = 0; step < count;) {
    Chain chain{outline.chain.piece, {line[(start + step) % count]}};
    const bool gone = outline.gone[(start + step) % count];
    do {
      ++step;
      chain.points.push_back(line[(start + step) % count]);
    } while (!IsKnot(line[(start + step) % count]));
    if (!gone) chains.push_back(std::move(chain));
  }
}

std::vector<ground::Piece> Seams::Join(base::RunHost& host) {
  std::ranges::sort(places_);
  places_.erase(std::unique(places_.begin(), places_.end()), places_.end());
  for (Outline& outline : outlines_) {
    host.Yield();
    GivePointsAcross(outline.chain.points);
  }
  DropCommonStretches(host);
  FindTouches(host);
  std::vector<Chain> chains;
  for (Outline& outline : outlines_) {
    host.Yield();
    CutIntoChains(outline, chains);
    outline = {};
  }
  std::vector<ground::Piece> pieces(joinedTo_.size());
  for (Chain& line : WovenLines(std::move(chains), host)) {
    ground::Piece& piece = pieces[FirstJoined(line.piece)];
    if (ground::SignedArea(line.points) > 0) {
      piece.holes.push_back(std::move(line.points));
    } else if (piece.shell.empty()) {
      piece.shell = std::move(line.points);
    } else {
      throw ground::GeometryError("a piece has two outlines");
    }
  }
  std::erase_if(pieces, [](const ground::Piece& piece) { return piece.shell.empty(); });
  return pieces;
}

}  // namespace kestrin::net
