#pragma once

#include <vector>

#include "export/ground/geos.h"

namespace kestrin::net {

/// A connected piece of the net ground.
struct NetPiece {
  ground::Piece outline;
  double squareMetres = 0;
};

/// Measures pieces and puts them in an order that hangs on nothing but themselves: the largest
/// first, equal ones by place; lines begin at their westernmost, then southernmost point, holes
/// come in the order of their first points.
std::vector<NetPiece> InOrder(std::vector<ground::Piece> outlines);

}  // namespace kestrin::net
