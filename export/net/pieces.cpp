#include "export/net/pieces.h"

#include <algorithm>

#include "export/ground/planeGeometry.h"
#include "export/net/place.h"

namespace kestrin::net {
namespace {

bool IsBefore(const ground::Line& one, const ground::Line& other) {
  return kPlace(one.front()) < kPlace(other.front());
}

/// Lets a closed line begin at its least point.
void BeginAtLeast(ground::Line& line) {
  line.pop_back();
  std::rotate(line.begin(), std::ranges::min_element(line, {}, kPlace), line.end());
  line.push_back(line.front());
}

NetPiece Measured(ground::Piece outline) {
  BeginAtLeast(outline.shell);
  // Shells run clockwise, holes the other way.
  double area = -ground::SignedArea(outline.shell);
  for (ground::Line& hole : outline.holes) {
    BeginAtLeast(hole);
    area -= ground::SignedArea(hole);
  }
  std::ranges::sort(outline.holes, IsBefore);
  return {std::move(outline), area};
}

}  // namespace

std::vector<NetPiece> InOrder(std::vector<ground::Piece> outlines) {
  std::vector<NetPiece> pieces;
  pieces.reserve(outlines.size());
  for (ground::Piece& outline : outlines) pieces.push_back(Measured(std::move(outline)));
  std::ranges::sort(pieces, [](const NetPiece& one, const NetPiece& other) {
    if (one.squareMetres != other.squareMetres) return one.squareMetres > other.squareMetres;
    return IsBefore(one.outline.shell, other.outline.shell);
  });
  return pieces;
}

}  // namespace kestrin::net
