#include "export/net/netSet.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "export/net/degreePieces.h"
#include "shapefile/attributeTable.h"
#include "shapefile/numberText.h"
#include "shapefile/shapefileSet.h"

namespace kestrin::net {
namespace {

const std::array<shapefile::Field, 4> kFields{
    {{"ID", 'N', 8, 0}, {"ACRES", 'N', 10, 2}, {"GROSS", 'N', 10, 2}, {"OVERLAP", 'N', 10, 2}}};

constexpr double kAcresPerSquareMetre = 0.000247105381;
constexpr double kHectaresPerSquareMetre = 0.0001;

/// With one decimal, whatever the locale.
std::string Tenths(double value) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 1);
  return {text.data(), end.ptr};
}

void WriteLine(shapefile::ShapefileSet& set, const DegreeLine& line) {
  for (const geo::GeoPoint& point : line) set.AddVertex(point);
}

void WritePiece(shapefile::ShapefileSet& set, const DegreePiece& piece,
                std::string_view attributes) {
  set.BeginRecord(piece.lines.size());
  WriteLine(set, piece.lines.front());
  for (std::size_t hole = 1; hole < piece.lines.size(); ++hole) {
    set.BeginPart();
    WriteLine(set, piece.lines[hole]);
  }
  set.EndRecord(attributes);
}

}  // namespace

double Totals::OverlapPerCent() const { return gross > net ? (gross - net) / gross * 100 : 0; }

std::string Totals::InWords() const {
  return "net " + Tenths(net * kAcresPerSquareMetre) + " acres (" +
         Tenths(net * kHectaresPerSquareMetre) + " ha), swept " +
         Tenths(gross * kAcresPerSquareMetre) + ", overlap " + Tenths(OverlapPerCent()) + " %";
}

std::vector<exports::Figure> Totals::Figures(double acres) const {
  return {{"acres", shapefile::RoundTo(acres, 2)},
          {"gross_acres", shapefile::RoundTo(gross * kAcresPerSquareMetre, 2)},
          {"overlap_percent", shapefile::RoundTo(OverlapPerCent(), 2)}};
}

double WriteNetSet(const std::string& basePath, const std::vector<NetPiece>& pieces,
                   const Totals& totals, const geo::WorkingPlane& plane, exports::ExportRun& run) {
  shapefile::ShapefileSet set(run.files, basePath, shapefile::ShapeType::kPolygon, kFields,
                              run.options);
  shapefile::AttributeRecord attributes(kFields);
  DegreePieces degrees(plane);
  double acres = 0;
  for (const NetPiece& piece : pieces) {
    for (const DegreePiece& written : degrees.Of(piece, run.host)) {
      attributes.Clear();
      attributes.Add(shapefile::IntegerText(set.RecordCount()).View(), shapefile::Keep::kRight);
      for (const double value : {written.squareMetres * kAcresPerSquareMetre,
                                 totals.gross * kAcresPerSquareMetre, totals.OverlapPerCent()}) {
        attributes.Add(shapefile::RoundedText(value, 2).View(), shapefile::Keep::kLeft);
      }
      acres += shapefile::NumberIn(
          shapefile::RoundedText(written.squareMetres * kAcresPerSquareMetre, 2).View(),
          kFields[1].width);
      WritePiece(set, written, attributes.Bytes());
    }
  }
  set.Commit();
  return acres;
}

}  // namespace kestrin::net
