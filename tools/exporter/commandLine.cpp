#include "tools/exporter/commandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <thread>

#include "base/utf8Path.h"
#include "export/exportKinds.h"
#include "tools/exporter/exitCode.h"
#include "tools/exporter/folderListing.h"

namespace kestrin::exporter {
namespace {

constexpr const char* kEveryKind = "all";
constexpr unsigned kMostThreads = 256;
/// The kind that --all-sections is of.
constexpr const char* kNet = "net";

std::vector<std::string> KindNames() {
  std::vector<std::string> names;
  for (const exports::ExportKind* kind : exports::AllKinds()) names.emplace_back(kind->name);
  names.emplace_back(kEveryKind);
  return names;
}

std::string KindHelp() {
  std::string help =
      "Kind of set, any number of times; default: all, which is wire, boom, poly and point";
  for (const exports::ExportKind& kind : exports::kNamedKinds) {
    help.append(". ").append(kind.name).append(" is ").append(kind.purpose);
  }
  return help;
}

std::vector<const exports::ExportKind*> KindsNamed(const std::vector<std::string>& names) {
  const auto asked = [&](std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  std::vector<const exports::ExportKind*> kinds;
  for (const exports::ExportKind& kind : exports::kExportKinds) {
    if (names.empty() || asked(kEveryKind) || asked(kind.name)) kinds.push_back(&kind);
  }
  for (const exports::ExportKind& kind : exports::kNamedKinds) {
    if (asked(kind.name)) kinds.push_back(&kind);
  }
  return kinds;
}

/// Elsewhere "-" is a stream; taken for a name here it would leave files of that name behind.
void RefuseDash(const std::string& option, const std::string& path) {
  const std::size_t last = path.find_last_not_of("/\\");
  if (last == 0 && path.front() == '-') {
    throw CLI::ValidationError(option,
                               "is \"-\", but neither jobs nor sets come by a stream; a "
                               "file or folder of that name is \"./-\"");
  }
}

}  // namespace

std::optional<int> ParseCommandLine(int argc, const char* const* argv, ExportOptions& options) {
  std::vector<std::string> kinds;
  CLI::App app("Writes the shapefile sets of job files.", "kestrin-export");
  app.set_version_flag("--version", "kestrin-export " KESTRIN_VERSION);
  app.add_option("--kind", kinds, KindHelp())
      ->allow_extra_args(false)
      ->check(CLI::IsMember(KindNames()));
  CLI::Option* out =
      app.add_option("--out", options.out, "Folder that the jobs' own folders go into")
          ->capture_default_str()
          ->type_name("DIR");
  CLI::Option* base =
      app.add_option("--base", options.base, "Base path of the sets, without suffix; one JOB only")
          ->excludes(out)
          ->type_name("PATH");
  app.add_option("--jobs", options.jobs, "Work on so many jobs at once")
      ->capture_default_str()
      ->check(CLI::Range(1U, 256U));
  options.threads = std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
  app.add_option("--threads", options.threads,
                 "Share the work among so many threads; default: as many as the machine has")
      ->check(CLI::Range(1U, kMostThreads));
  app.add_flag("--all-sections", options.allSections,
               "For net: count the implement's full width, whatever sections were on");
  app.add_flag("--prj", options.prj, R"(Add ".prj" (NAD83) and ".cpg" to each set)");
  app.add_flag("--summary", options.summary,
               "Say of each job its dates, epochs, metres, acres, format and products; make no set")
      ->excludes("--kind", "--out", "--base", "--prj");
  app.add_flag("--recursive", options.recursive, "Look for job files in all folders below as well");
  app.add_flag("--json", options.json, "A line of JSON on stdout per set, failure or summary");
  app.add_flag("--quiet", options.quiet, "No progress bar, no result lines");
  app.add_option("JOB", options.jobPaths,
                 "Job files, and folders with job files (*.sqlite) in them")
      ->required();
  app.callback([&] {
    RefuseDash("--out", options.out);
    RefuseDash("--base", options.base);
    for (const std::string& path : options.jobPaths) RefuseDash("JOB", path);
    if (options.out.empty()) throw CLI::ValidationError("--out", "is empty");
    if (options.allSections && std::ranges::find(kinds, kNet) == kinds.end()) {
      throw CLI::ValidationError("--all-sections", "goes with --kind net");
    }
    if (base->count() == 0) return;
    if (options.base.empty()) throw CLI::ValidationError("--base", "is empty");
    if (options.jobPaths.size() > 1) throw CLI::ValidationError("--base", "takes one JOB only");
    if (IsFolder(base::WithOwnSeparators(options.jobPaths.front()))) {
      throw CLI::ValidationError("--base", "takes a job file, not a folder");
    }
  });
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kAllMade : kWrongUsage;
  }
  options.kinds = KindsNamed(kinds);
  // Where the system takes more than one separator, the rules of naming know its own.
  options.out = base::WithOwnSeparators(options.out);
  options.base = base::WithOwnSeparators(options.base);
  for (std::string& path : options.jobPaths) path = base::WithOwnSeparators(path);
  return std::nullopt;
}

}  // namespace kestrin::exporter
