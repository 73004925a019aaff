#include "export/net/runs.h"

#include "export/net/cutter.h"

namespace kestrin::net {
namespace {

constexpr std::size_t kRowsBetweenYields = 1024;

}  // namespace

Runs::Runs(const Track& track, base::RunHost& host) : track_(track) {
  std::vector<Cutter> cutters(Spans().size(), Cutter(track));
  Spans spans;
  for (std::size_t row = 1; row < track.Rows(); ++row) {
    if (row % kRowsBetweenYields == 0) host.Yield();
    if (!track.GoesOnAsBefore(row)) spans = track.WorkingUpTo(row);
    for (std::uint8_t section = 0; section <= Setup::kWhole; ++section) {
      if (spans[section] == Setup::kNone) {
        cutters[section].End();
      } else {
        cutters[section].Lay(static_cast<std::uint32_t>(row), {section, spans[section]});
      }
    }
  }
  for (Cutter& cutter : cutters) {
    cutter.End();
    swept_ += cutter.SweptSquareMetres();
    cutter.MoveInto(all_, rows_);
  }
}

}  // namespace kestrin::net
