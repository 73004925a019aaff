#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>

#include "base/crew.h"
#include "base/fileSystem.h"
#include "bench/floors.h"
#include "bench/sideBySide.h"
#include "export/exportKinds.h"

namespace kestrin::bench {

/// An export to be measured, and what it cannot do without.
struct ExportCase {
  const exports::ExportKind& kind;
  std::function<void(const std::string& path, std::int64_t rows)> makeJob;
  /// The rows that it reads, and which columns of theirs are integers.
  std::string query;
  std::vector<int> integers;
  /// Points that it converts for each row; 0: as many as the set holds.
  std::int64_t pointsARow = 0;
  /// Makes much the same with another program, from a job, in a folder.
  std::function<void(const std::string& job, const ScratchFolder& folder)> peer{};
  /// A query of one row that it begins with.
  std::string firstQuery{};
};

inline void RunCommand(const std::string& command) {
  if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

/// Makes a set, which must succeed.
inline void MakeSet(const exports::ExportKind& kind, const std::string& base,
                    const std::string& job, base::Crew* crew) {
  SilentHost host;
  const auto files = base::NativeFileSystem();
  exports::ExportRun run{host, *files, {}};
  run.crew = crew;
  if (!kind.procedure(base, job, run).made) throw std::runtime_error("no set made of " + job);
}

/// A whole export beside the sum of its floors (the same rows through SQLite, as many points
/// through PROJ, the same bytes to the disk), its peer, and a dump of the same rows.
inline void MeasureExport(benchmark::State& state, const ExportCase& what) {
  const ScratchFolder folder;
  const std::int64_t rows = state.range(0);
  const std::string job = folder / "job.sqlite";
  const std::string grownJob = folder / "grown.sqlite";
  const std::string base = folder / "job";
  what.makeJob(job, rows);
  base::Crew crew(std::thread::hardware_concurrency());
  const auto all = [&] { MakeSet(what.kind, base, job, &crew); };
  const double peak = PeakOf(all);
  auto sizes = SizesOfSet(base);
  const auto shapes = static_cast<std::int64_t>(sizes[".shp"]);
  const auto table = static_cast<std::int64_t>(sizes[".dbf"]);
  const std::int64_t points = what.pointsARow > 0 ? rows * what.pointsARow : shapes / 16;
  // No file of a set may pass 2 GiB.
  const bool grows = 5 * std::max(shapes, table) < std::int64_t{2} << 30;
  if (grows) what.makeJob(grownJob, 5 * rows);
  const auto floor = [&] {
    if (!what.firstQuery.empty()) Database(job).Scan(what.firstQuery);
    Database(job).Scan(what.query, what.integers);
    ProjectPoints(points);
    WriteSetPlainly(sizes, folder / "plain");
  };
  const auto dump = [&] {
    RunCommand("sqlite3 -readonly -csv " + job + " '" + what.query + "' >" + (folder / "dump.csv"));
  };
  std::vector<Side> sides{{"floor", floor},
                          {"one", [&] { MakeSet(what.kind, base, job, nullptr); }},
                          {"all", all},
                          {"dump", dump}};
  if (grows) sides.push_back({"grown", [&] { MakeSet(what.kind, base, grownJob, &crew); }});
  if (what.peer) sides.push_back({"peer", [&] { what.peer(job, folder); }, true});
  SideBySide(state, sides, [&] { folder.KeepOnly(".sqlite"); });
  state.counters["peak_MiB"] = peak;
}

}  // namespace kestrin::bench
