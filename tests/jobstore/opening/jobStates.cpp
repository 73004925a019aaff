#include "tests/jobstore/opening/jobStates.h"

#include <fstream>
#include <stdexcept>

#include "tests/support/database.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {
namespace fs = std::filesystem;
namespace {

void AddEpochs(JobBuilder& job, int count) {
  for (int i = 0; i < count; ++i) job.Epoch({100, i}, i, 2 * i);
}

/// What a kill at this instant leaves of the job: copies of what is on the disk.
void LeaveAsKilled(const fs::path& from, const fs::path& to,
                   std::initializer_list<const char*> suffixes) {
  for (const char* suffix : suffixes) {
    fs::path source = from, target = to;
    fs::copy_file(source += suffix, target += suffix);
  }
}

void MakeCutOff(const std::string& draft, const fs::path& path) {
  Database writer(draft);
  // So small a cache makes the change reach the file before it is completed.
  writer.Execute("PRAGMA cache_size=5")
      .Execute("BEGIN")
      .Execute("UPDATE GpsDataTable SET e_I_B__B2=-1");
  LeaveAsKilled(draft, path, {"", "-journal"});
  if (FileBytes(draft) == FileBytes(draft + ".before")) {
    throw std::runtime_error("the change did not reach the file");
  }
}

void MakeLogged(const std::string& draft, const fs::path& path, bool indexed) {
  Database writer(draft);
  writer.Execute("PRAGMA synchronous=OFF")
      .Execute("PRAGMA journal_mode=WAL")
      .Execute("PRAGMA wal_autocheckpoint=0");
  writer.Execute("UPDATE GpsDataTable SET e_I_B__B2=gpsMsec");
  LeaveAsKilled(draft, path, {"", "-wal"});
  if (indexed) LeaveAsKilled(draft, path, {"-shm"});
}

void Settle(const std::string& draft, const fs::path& path, const std::string& mode) {
  {
    Database writer(draft);
    writer.Execute("PRAGMA synchronous=OFF")
        .Execute("PRAGMA journal_mode=" + mode)
        .Execute("UPDATE GpsDataTable SET speed=1");
    if (mode != "WAL" && mode != "DELETE") LeaveAsKilled(draft, path, {"-journal"});
  }
  LeaveAsKilled(draft, path, {""});
}

}  // namespace

std::string MakeJob(const fs::path& folder, JobState state, const std::string& name) {
  const TempFolder workshop;
  const std::string draft = workshop / "draft.sqlite";
  const fs::path path = folder / base::PathOf(name);
  JobBuilder builder(draft);
  AddEpochs(builder, kStateEpochs);
  const bool logged = state == JobState::kWriteAheadLog || state == JobState::kWriteAheadIndexed;
  // The truth is to stand in the log, so the file itself says otherwise.
  if (logged) builder.Execute("UPDATE GpsDataTable SET e_I_B__B2=-2");
  builder.Finish();
  fs::copy_file(draft, draft + ".before");
  switch (state) {
    case JobState::kAtRest:
      Settle(draft, path, "DELETE");
      break;
    case JobState::kJournalKept:
      Settle(draft, path, "PERSIST");
      break;
    case JobState::kJournalEmpty:
      Settle(draft, path, "TRUNCATE");
      break;
    case JobState::kCutOff:
      MakeCutOff(draft, path);
      break;
    case JobState::kWriteAhead:
      Settle(draft, path, "WAL");
      break;
    case JobState::kWriteAheadEmpty:
      Settle(draft, path, "WAL");
      std::ofstream(path.string() + "-wal");
      break;
    case JobState::kWriteAheadLog:
      MakeLogged(draft, path, false);
      break;
    case JobState::kWriteAheadIndexed:
      MakeLogged(draft, path, true);
      break;
  }
  return base::Utf8Of(path);
}

}  // namespace kestrin::test
