#include "jobstore/opening/jobMarks.h"

#include <fstream>

#include "jobstore/opening/jobFile.h"
#include "jobstore/opening/privateCopy.h"

namespace kestrin::opening {
namespace fs = std::filesystem;
namespace {

/// Bytes of a file from an offset on, as far as it has them.
std::string Part(const fs::path& file, std::streamoff offset, std::size_t size) {
  if (SizeOf(file) == 0) return {};
  std::string bytes(size, '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.seekg(offset).read(bytes.data(), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

/// All zeros are what an index has of a log of which nothing was brought over yet.
std::string BroughtOver(const fs::path& index) {
  constexpr std::streamoff kAttempted = 128;
  std::string count = Part(index, kAttempted, 4);
  return count == std::string(4, '\0') ? std::string() : count;
}

}  // namespace

JobMarks MarksOf(const fs::path& job) {
  constexpr std::size_t kHeader = 100;
  constexpr std::size_t kJournalHeader = 28;
  constexpr std::size_t kLogHeader = 32;
  return {SizeOf(job),
          WrittenAt(job),
          Part(job, 0, kHeader),
          Part(Beside(job, "-journal"), 0, kJournalHeader),
          Part(Beside(job, "-wal"), 0, kLogHeader),
          BroughtOver(Beside(job, "-shm"))};
}

bool StillHold(const JobMarks& before, const fs::path& job) {
  JobMarks now = MarksOf(job);
  if (before.log.empty()) now.log.clear();
  return now == before;
}

}  // namespace kestrin::opening
