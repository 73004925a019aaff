#include "tools/sample/sampleJob.h"

#include <filesystem>
#include <vector>

#include "base/utf8Path.h"
#include "tools/sample/jobWriter.h"
#include "tools/sample/profiles.h"
#include "tools/sample/recorder.h"

namespace kestrin::sample {
namespace {

namespace fs = std::filesystem;

const Scenario& ScenarioNamed(const std::string& name) {
  for (const Scenario& scenario : Scenarios()) {
    if (scenario.name == name) return scenario;
  }
  throw SampleError("no profile is named " + name);
}

/// The name a job has while it is made; gone at the end of the scope.
class HalfMade {
 public:
  explicit HalfMade(const std::string& path) : path_(path + ".kestrin-part") { Remove(); }
  ~HalfMade() { Remove(); }
  HalfMade(const HalfMade&) = delete;
  HalfMade& operator=(const HalfMade&) = delete;

  const std::string& Path() const { return path_; }

 private:
  void Remove() const {
    std::error_code ignored;
    fs::remove(base::PathOf(path_), ignored);
  }

  std::string path_;
};

void Record(const std::string& path, const SampleOptions& options) {
  const Scenario& scenario = ScenarioNamed(options.profile);
  JobWriter job(path);
  Recorder(scenario, options.rows > 0 ? options.rows : scenario.rows, options.seed, job).Run();
  job.Commit();
}

void RefuseExisting(const std::string& path, const SampleOptions& options) {
  if (!options.force && fs::exists(fs::symlink_status(base::PathOf(path)))) {
    throw SampleError("is there already");
  }
}

}  // namespace

std::span<const SampleProfile> SampleProfiles() {
  static const std::vector<SampleProfile> profiles = [] {
    std::vector<SampleProfile> names;
    for (const Scenario& scenario : Scenarios()) {
      names.push_back({scenario.name, scenario.description});
    }
    return names;
  }();
  return profiles;
}

void MakeSampleJob(const std::string& path, const SampleOptions& options) {
  try {
    RefuseExisting(path, options);
    const HalfMade half(path);
    Record(half.Path(), options);
    RefuseExisting(path, options);
    fs::rename(base::PathOf(half.Path()), base::PathOf(path));
  } catch (const SampleError& error) {
    throw SampleError(path + ": " + error.what());
  } catch (const fs::filesystem_error& error) {
    throw SampleError(path + ": " + error.code().message());
  }
}

}  // namespace kestrin::sample
