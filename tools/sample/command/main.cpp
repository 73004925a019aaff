#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>
#include <vector>

#include "tools/sample/sampleJob.h"

namespace kestrin::sample {
namespace {

enum ExitCode { kMade = 0, kNotMade = 1, kWrongUsage = 2 };

std::string ProfileList() {
  std::string list = "Profiles:";
  for (const SampleProfile& profile : SampleProfiles()) {
    list += "\n  ";
    list += profile.name;
    list.append(profile.name.size() < 18 ? 18 - profile.name.size() : 1, ' ');
    list += profile.description;
  }
  return list;
}

std::vector<std::string> ProfileNames() {
  std::vector<std::string> names;
  for (const SampleProfile& profile : SampleProfiles()) names.emplace_back(profile.name);
  return names;
}

void PrintProfileNames(std::int64_t) {
  for (const SampleProfile& profile : SampleProfiles()) {
    std::printf("%.*s\n", static_cast<int>(profile.name.size()), profile.name.data());
  }
  throw CLI::Success();
}

int Run(int argc, char** argv) {
  SampleOptions options;
  std::string out;
  CLI::App app("Makes a sample job: believable field work in a console's job file.");
  app.set_version_flag("--version", "kestrin-sample " KESTRIN_VERSION);
  app.footer(ProfileList());
  app.add_option("--rows", options.rows, "Epochs that take part; default: the profile's own")
      ->check(CLI::Range(std::int64_t{1}, std::int64_t{100000000}));
  app.add_option("--seed", options.seed, "The same seed makes the same job")->capture_default_str();
  app.add_option("--profile", options.profile, "What kind of job")
      ->capture_default_str()
      ->check(CLI::IsMember(ProfileNames()));
  app.add_flag("--force", options.force, "Replace a file that is there already");
  app.add_flag_function("--list-profiles", PrintProfileNames, "Print the profiles' names and exit");
  app.add_option("OUT", out, "The job file to make")->required();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kMade : kWrongUsage;
  }
  MakeSampleJob(out, options);
  return kMade;
}

}  // namespace
}  // namespace kestrin::sample

int main(int argc, char** argv) {
  try {
    return kestrin::sample::Run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kestrin-sample: %s\n", error.what());
    return kestrin::sample::kNotMade;
  }
}
