#pragma once

#include <string>
#include <vector>

#include "export/boom/boomExport.h"
#include "tests/export/boom/literalBoom.h"
#include "tests/export/setFixture.h"

namespace kestrin::test {

/// A record of a boom set as it stands in the files.
struct BoomShape : ReadRecord {
  /// The table's eleven texts, blanks included.
  std::vector<std::string> fields;

  const std::string& Implement() const { return fields[1]; }
  const std::string& Product(std::size_t slot) const { return fields[2 + 3 * slot]; }
  const std::string& TargetRate(std::size_t slot) const { return fields[3 + 3 * slot]; }
  const std::string& ActualRate(std::size_t slot) const { return fields[4 + 3 * slot]; }
};

struct BoomSet {
  geo::Box box;
  std::vector<BoomShape> shapes;
};

BoomSet ReadBoomSet(const std::string& basePath);

/// One job, exported.
class BoomFixture : public SetFixture {
 protected:
  static constexpr jobstore::GpsKey kStart{1400, 1000};

  BoomFixture() : SetFixture(boom::ExportBoomShape, "job_BOOM") {}

  static jobstore::GpsKey After(int seconds) {
    return {kStart.gpsWeek, kStart.gpsMsec + 1000 * seconds};
  }

  /// Completes and exports the job, and reads the set.
  BoomSet ExportedSet();
  /// Completes the job; its export ends with the run-time error that says so.
  void ExpectSubscriptError(const std::string& text);
  /// Each point of a shape, in metres east or north of the reference location and
  /// rounded to millimetres.
  static std::vector<double> Easts(const BoomShape& shape);
  static std::vector<double> Norths(const BoomShape& shape);

  /// A reference location at 47 N, 97.5 W and one section of 4 metres called "Disc",
  /// both from kStart.
  void ReferenceAndDisc();
  void ReferenceOnly();
};

}  // namespace kestrin::test
