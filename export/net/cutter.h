#pragma once

#include <cstdint>
#include <vector>

#include "export/net/runs.h"
#include "export/net/track.h"

namespace kestrin::net {

/// Cuts the strips of the spans that begin with one section into runs.
///
/// A row at which no end of the boom has moved farther than standing machines seem to, for the
/// noise of their receivers, is no step unless the strip ends with it. What it sweeps counts as
/// swept; the ground it adds about the boom is passed on the way in and out.
class Cutter {
 public:
  explicit Cutter(const Track& track) : track_(track) {}

  /// Lays the ground of a span from the row before up to this one.
  void Lay(std::uint32_t row, Span span);
  /// Ends the strip, if there is one.
  void End();

  double SweptSquareMetres() const { return swept_; }

  /// Moves what was cut behind what others have.
  void MoveInto(std::vector<Run>& runs, std::vector<std::uint32_t>& rows);

 private:
  void Begin(std::uint32_t row, Span span);
  void Step(std::uint32_t row, const Boom& boom);
  void BeginRun(int direction);
  bool Fits(const Boom& boom) const;
  bool Stands(const Boom& boom) const;

  const Track& track_;
  std::vector<Run> runs_;
  std::vector<std::uint32_t> rows_;
  double swept_ = 0;

  bool open_ = false;      // a strip
  Span span_;              // of the strip
  int direction_ = 0;      // of its newest quad; 0: there is none that can be gone on from
  std::uint32_t row_ = 0;  // the newest one laid
  Boom boom_;              // there
  Boom step_;              // at the newest step
  Boom first_;             // of the newest run
};

}  // namespace kestrin::net
