// Prints unions of thousands of quadrilaterals that overlap at any angle, one a line, all
// bytes of their coordinates: the same text wherever they are the same to the last bit.

#include <geos_c.h>
#include <stdint.h>
#include <stdio.h>

enum { kUnions = 40, kQuadrilaterals = 250 };

// In [-1, 1].
static double Unit(void) {
  static uint64_t state = 20060615;
  state = state * 6364136223846793005u + 1442695040888963407u;
  return (double)(int64_t)state / 0x1p63;
}

// A boom's ground between two epochs, somewhere in a field of a hundred metres that lies as
// far from the projection's origin as fields do.
static GEOSGeometry* Quadrilateral(void) {
  const double east = 400000 + 50 * Unit(), north = 5000000 + 50 * Unit();
  const double alongEast = 3 * Unit(), alongNorth = 3 * Unit();
  const double corners[4][2] = {{-1, -2}, {1, -2}, {1, 2}, {-1, 2}};
  GEOSCoordSequence* line = GEOSCoordSeq_create(5, 2);
  for (unsigned i = 0; i < 4; ++i) {
    const double along = corners[i][0] + 0.2 * Unit(), across = corners[i][1] + 0.2 * Unit();
    const double x = east + along * alongEast - across * alongNorth;
    const double y = north + along * alongNorth + across * alongEast;
    GEOSCoordSeq_setXY(line, i, x, y);
    if (i == 0) GEOSCoordSeq_setXY(line, 4, x, y);
  }
  return GEOSGeom_createPolygon(GEOSGeom_createLinearRing(line), NULL, 0);
}

int main(void) {
  initGEOS(NULL, NULL);
  for (int i = 0; i < kUnions; ++i) {
    GEOSGeometry* areas[kQuadrilaterals];
    for (int k = 0; k < kQuadrilaterals; ++k) areas[k] = Quadrilateral();
    GEOSGeometry* all = GEOSGeom_createCollection(GEOS_GEOMETRYCOLLECTION, areas, kQuadrilaterals);
    GEOSGeometry* sum = GEOSUnaryUnion(all);
    if (sum == NULL) return 1;
    size_t size = 0;
    unsigned char* bytes = GEOSGeomToHEX_buf(sum, &size);
    printf("%.*s\n", (int)size, (const char*)bytes);
    GEOSFree(bytes);
    GEOSGeom_destroy(sum);
    GEOSGeom_destroy(all);
  }
  finishGEOS();
  return 0;
}
