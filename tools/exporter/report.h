#pragma once

#include "export/exportKinds.h"
#include "tools/exporter/console.h"
#include "tools/exporter/failure.h"
#include "tools/exporter/jobSummary.h"

namespace kestrin::exporter {

/// A set that now exists.
struct MadeSet {
  std::string jobPath;
  std::string_view kind;
  std::string path;  ///< of its .shp
  exports::ExportOutcome outcome;
};

/// Tells what comes of a run: on stdout in words or, for machines, as a line of JSON each; what
/// fails on stderr as well, in words. Any thread may call.
class Report {
 public:
  struct Style {
    bool json = false;
    bool quiet = false;  ///< failures alone
  };

  /// The console must outlive it.
  Report(Console& console, Style style) : console_(console), style_(style) {}

  void Made(const MadeSet& set);
  void Summed(const JobSummary& summary);
  void Fail(const Failure& failure);

 private:
  Console& console_;
  Style style_;
};

}  // namespace kestrin::exporter
