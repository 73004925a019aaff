// Opens arbitrary bytes as a job and walks every query of the program over it.
// What an input is made of: docs/fuzzing.md.

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

#include "jobstore/job.h"
#include "jobstore/queries.h"

namespace kestrin {
namespace {

/// A forged tree can hold far more rows than its file has bytes.
constexpr int kRowsPerQuery = 2000;

/// A folder for the job under test, kept through the run.
class Folder {
 public:
  Folder() { std::filesystem::create_directories(path_); }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::string Job() const { return (path_ / "job.sqlite").string(); }

 private:
  std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("kestrin-fuzz-" + std::to_string(getpid()));
};

const std::string& JobPath() {
  static const Folder folder;
  static const std::string path = folder.Job();
  return path;
}

void Write(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Splits "<job><beside it><length of that, 4 bytes little-endian><suffix>" off an
/// input that ends in the suffix; false when it does not.
bool WriteBeside(std::string_view& input, std::string_view suffix) {
  if (input.size() < suffix.size() + 4 || !input.ends_with(suffix)) return false;
  input.remove_suffix(suffix.size());
  std::size_t length = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    length = length << 8 | static_cast<unsigned char>(input[input.size() - 1 - i]);
  }
  input.remove_suffix(4);
  if (length > input.size()) length = input.size();
  Write(JobPath() + std::string(suffix), input.substr(input.size() - length));
  input.remove_suffix(length);
  return true;
}

template <class Q, class... Numbers>
void Walk(jobstore::Job& job, const Numbers&... numbers) {
  jobstore::Query<Q> query(job, numbers...);
  typename Q::Row row{};
  for (int rows = 0; rows < kRowsPerQuery && query.Next(row); ++rows) {
  }
}

void WalkAll(jobstore::Job& job) {
  Walk<jobstore::VersionTableCount>(job);
  Walk<jobstore::NewestVersion>(job);
  Walk<jobstore::EpochCount>(job);
  Walk<jobstore::NewestEpoch>(job);
  Walk<jobstore::References>(job);
  Walk<jobstore::ReferencesWithAltitude>(job);
  Walk<jobstore::Implements>(job);
  Walk<jobstore::DesiredRates>(job);
  Walk<jobstore::ActualRates>(job);
  Walk<jobstore::Products>(job);
  Walk<jobstore::BoomStatusMaximum>(job);
  for (int section = 0; section < jobstore::kSectionSlots; ++section)
    Walk<jobstore::SectionWidthMaximum>(job, section);
  Walk<jobstore::DesiredRateMaxima>(job);
  Walk<jobstore::ActualRateMaxima>(job);
  Walk<jobstore::WireEpochs>(job);
  Walk<jobstore::PolyEpochs>(job);
  Walk<jobstore::PointEpochs>(job);
  Walk<jobstore::BoomEpochs>(job);
  Walk<jobstore::PreviewBoomEpochs>(job);
  Walk<jobstore::PreviewWireEpochs>(job);
  Walk<jobstore::PreviewPolyEpochs>(job);
  Walk<jobstore::PreviewPointEpochs>(job);
}

std::size_t EntriesBesideJob() {
  const std::filesystem::path path(JobPath());
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& entry :
       std::filesystem::directory_iterator(path.parent_path())) {
    ++count;
  }
  return count;
}

void Run(std::string_view input) {
  for (const char* suffix : {"", "-wal", "-journal", "-shm"}) {
    std::filesystem::remove(JobPath() + suffix);
  }
  WriteBeside(input, "-wal") || WriteBeside(input, "-journal");
  Write(JobPath(), input);
  const std::size_t entries = EntriesBesideJob();
  {
    jobstore::Job job(JobPath());
    if (job.IsOpen()) WalkAll(job);
  }
  // Whatever the bytes are: nothing comes or goes beside the job.
  if (EntriesBesideJob() != entries) std::abort();
}

}  // namespace
}  // namespace kestrin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kestrin::Run({reinterpret_cast<const char*>(data), size});
  return 0;
}
