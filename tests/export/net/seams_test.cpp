#include "export/net/seams.h"

#include <gtest/gtest.h>

namespace kestrin::net {
namespace {

/// Tiles of 4 m.
class SeamsOfTiles : public testing::Test {
 protected:
  std::vector<ground::Piece> Joined() {
    std::vector<ground::Piece> pieces = seams_.Join();
    for (const ground::Piece& piece : pieces) EXPECT_TRUE(geos_.IsValid(geos_.Inside(piece)));
    return pieces;
  }
  double SquareMetres(const ground::Piece& piece) {
    return geos_.SquareMetres(geos_.Inside(piece));
  }

  ground::Geos geos_;
  Seams seams_{geos_, 4};
};

TEST_F(SeamsOfTiles, GroundOnBothSidesOfABorderIsOnePiece) {
  seams_.Take({{{{0, 0}, {0, 4}, {4, 4}, {4, 0}, {0, 0}}, {}}});
  seams_.Take({{{{4, 1}, {4, 3}, {8, 3}, {8, 1}, {4, 1}}, {}}});
  const std::vector<ground::Piece> pieces = Joined();
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_TRUE(pieces[0].holes.empty());
  EXPECT_EQ(SquareMetres(pieces[0]), 16 + 8);
}

TEST_F(SeamsOfTiles, PiecesThatTouchInAPointStayApart) {
  seams_.Take({{{{0, 0}, {0, 2}, {2, 2}, {2, 0}, {0, 0}}, {}},
               {{{2, 2}, {2, 4}, {4, 4}, {4, 2}, {2, 2}}, {}}});
  EXPECT_EQ(Joined().size(), 2U);
}

TEST_F(SeamsOfTiles, HoleThatTouchesTheOutlineIsAHole) {
  // Two tips that touch each other, and what they are tips of beyond the border.
  seams_.Take({{{{2, 2}, {4, 4}, {4, 3}, {2, 2}}, {}}, {{{2, 2}, {4, 1}, {4, 0}, {2, 2}}, {}}});
  seams_.Take({{{{4, 0}, {4, 4}, {6, 4}, {6, 0}, {4, 0}}, {}}});
  const std::vector<ground::Piece> pieces = Joined();
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_EQ(pieces[0].holes.size(), 1U);
  EXPECT_EQ(SquareMetres(pieces[0]), 8 + 1 + 1);
}

TEST_F(SeamsOfTiles, HoleAcrossABorderIsOneAndAnIslandInItIsAPiece) {
  seams_.Take({{{{0, 0}, {0, 4}, {4, 4}, {4, 3}, {1, 3}, {1, 1}, {4, 1}, {4, 0}, {0, 0}}, {}},
               {{{2, 1.5}, {2, 2.5}, {3, 2.5}, {3, 1.5}, {2, 1.5}}, {}}});
  seams_.Take({{{{4, 0}, {4, 1}, {7, 1}, {7, 3}, {4, 3}, {4, 4}, {8, 4}, {8, 0}, {4, 0}}, {}}});
  const std::vector<ground::Piece> pieces = Joined();
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(pieces[0].holes.size() + pieces[1].holes.size(), 1U);
  EXPECT_EQ(SquareMetres(pieces[0]) + SquareMetres(pieces[1]), 20 + 1);
}

}  // namespace
}  // namespace kestrin::net
