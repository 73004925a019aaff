#include "fuzz/wholePath.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "bench/blankPicture.h"
#include "export/exportKinds.h"
#include "fuzz/input.h"
#include "fuzz/memorySets.h"
#include "geo/gpsTime.h"
#include "jobstore/job.h"
#include "jobstore/queries.h"
#include "jobstore/recordedFormat.h"
#include "preview/renderers.h"
#include "tests/support/recordingHost.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

namespace kestrin::fuzz {
namespace fs = std::filesystem;
namespace {

/// A forged tree can hold far more rows than its file has bytes.
constexpr std::int64_t kRowsWalked = 2000;

void Write(const fs::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::map<fs::path, std::string> Content(const fs::path& folder) {
  std::map<fs::path, std::string> content;
  for (const auto& entry : fs::directory_iterator(folder)) {
    content[entry.path()] = test::FileBytes(entry.path());
  }
  return content;
}

/// Runs a part of the path, which may end in what a user is told in a box, or be stopped.
template <class Part>
void Guarded(Part part) {
  test::RecordingHost host;
  host.cancelAt = kRowsWalked;
  try {
    part(host);
  } catch (const base::RunCancelled&) {
  } catch (const base::FileError&) {
  } catch (const exports::SubscriptError&) {
  }
}

void Look(const std::string& path) {
  jobstore::Job job(path);
  jobstore::RecordedFormat(job);
  std::int32_t count = 0;
  jobstore::ReadFirst<jobstore::EpochCount>(job, count);
  jobstore::GpsKey newest;
  if (!jobstore::ReadFirst<jobstore::NewestEpoch>(job, newest)) return;
  try {
    geo::DateText(geo::LocalTimeOf(newest, 840), {});
  } catch (const std::overflow_error&) {
  }
}

void Draw(const std::string& path) {
  bench::BlankPicture picture;
  preview::PreviewState state;
  Guarded([&](auto& host) { preview::FindPreviewExtent(path, state, picture, host); });
  for (int kind = 0; kind < exports::kKindCount; ++kind) {
    Guarded([&](auto& host) { preview::DrawPreview(kind, state, picture, host); });
  }
}

void Export(const std::string& path, const exports::ExportKind& kind) {
  MemorySets files;
  bool made = false;
  Guarded([&](auto& host) {
    exports::ExportRun run{host, files, {}};
    made = kind.procedure("set", path, run).made;
  });
  Require(files.published.size() == (made ? 3 : 0), "a set is whole or absent");
  if (!made) return;
  const auto& published = files.published;
  const bool bounds = kind.name != "boom";
  test::ReadShapeSet({published.at("set.shp"), published.at("set.shx"), published.at("set.dbf")},
                     bounds ? test::RecordBoxes::kOfTheirPoints : test::RecordBoxes::kAny);
  kind.fields(path);
}

}  // namespace

Bench::Bench()
    : root_(fs::temp_directory_path() / ("kestrin-fuzz-" + std::to_string(getpid()))),
      folder_(root_ / "job"),
      temporary_(root_ / "temporary") {
  fs::create_directories(folder_);
  fs::create_directories(temporary_);
  setenv("TMPDIR", temporary_.c_str(), 1);
}

Bench::~Bench() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

void Bench::TakeWholePath(const std::string& job, const std::string& suffix,
                          const std::string& beside) {
  for (const auto& entry : fs::directory_iterator(folder_)) fs::remove(entry);
  const std::string path = folder_ / "job.sqlite";
  Write(path, job);
  if (!suffix.empty()) Write(path + suffix, beside);
  const auto before = Content(folder_);
  Look(path);
  Draw(path);
  for (const exports::ExportKind& kind : exports::kExportKinds) Export(path, kind);
  for (const exports::ExportKind& kind : exports::kNamedKinds) Export(path, kind);
  Require(Content(folder_) == before, "job and folder keep every byte");
  Require(fs::is_empty(temporary_), "nothing is left in the temporary folder");
}

Bench& TheBench() {
  static Bench bench;
  return bench;
}

}  // namespace kestrin::fuzz
