#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "export/exportKinds.h"
#include "tests/support/database.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/recordingHost.h"
#include "tests/support/tempFolder.h"

/// A console that writes while its job is exported: a set is of one state of the job, or absent.

namespace kestrin::exports {
namespace {

using Set = std::map<std::string, std::string>;

/// Calls back once, at a moment of the run.
class InterruptedHost : public test::RecordingHost {
 public:
  InterruptedHost(int moment, std::function<void()> action)
      : left_(moment), action_(std::move(action)) {}
  void Yield() override { Pass(); }
  void YieldInsideStep() noexcept override { Pass(); }
  bool Acted() const { return left_ <= 0; }

 private:
  void Pass() {
    if (left_ > 0 && --left_ == 0) action_();
  }

  int left_;
  std::function<void()> action_;
};

/// How a console keeps its job, and what it does with it in the middle of an export.
struct Habit {
  const char* name;
  const char* before;
  const char* after;
  /// Whether that can mix two states for who reads without a lock.
  bool mixes;
};
void PrintTo(const Habit& habit, std::ostream* out) { *out << habit.name; }

constexpr const char* kEverything =
    "BEGIN; UPDATE ReferenceLocationChangeTable SET latitude = latitude + 0.01;"
    "UPDATE GpsDataTable SET e_I_B__B2 = -2 * e_I_B__B2, speed = 9;"
    "UPDATE ImplChangeTable SET width0 = 7;"
    "UPDATE AsAppliedProductChangeTable SET ProductName0 = 'Other';"
    "UPDATE AsAppliedActRateChangeTable SET actualRate0 = 12; COMMIT;";

class ChangedJob : public testing::TestWithParam<Habit> {
 protected:
  ChangedJob() {
    test::JobBuilder builder(job_);
    builder.Reference({100, 0}, 45, -93).Implement({100, 0}, "Boom", {{3, 0, 0, 0}});
    builder.Products({100, 0}, "Product").DesiredRates({100, 0}, 5).ActualRates({100, 0}, 6);
    for (int i = 0; i < 600; ++i) builder.Epoch({100, i}, i, i % 40);
    builder.Finish();
  }

  /// The set a run leaves; none where it says that the job changed.
  Set Exported(const ExportKind& kind, base::RunHost& host) {
    const test::TempFolder folder;
    ExportRun run{host, *files_, {.date = {2006, 7, 9}, .lasting = false}};
    try {
      EXPECT_TRUE(kind.procedure(folder / "set", job_, run).made);
    } catch (const std::runtime_error& error) {
      EXPECT_STREQ(error.what(), "the job was written to while it was read; export it again");
    }
    Set set;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
      set[entry.path().extension().string()] = test::FileBytes(base::Utf8Of(entry.path()));
    }
    return set;
  }

  test::TempFolder jobs_;
  std::string job_ = jobs_ / "job.sqlite";
  std::unique_ptr<base::FileSystem> files_ = base::NativeFileSystem();
};

TEST_P(ChangedJob, GivesASetOfOneStateOrNoneWheneverItIsWrittenTo) {
  const Habit& habit = GetParam();
  const std::string kept = test::FileBytes(job_);
  int refused = 0;
  std::vector<ExportKind> kinds(kExportKinds.begin(), kExportKinds.end());
  kinds.insert(kinds.end(), kNamedKinds.begin(), kNamedKinds.end());
  for (const ExportKind& kind : kinds) {
    for (int moment = 1;; moment *= 6) {
      SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(moment));
      std::filesystem::remove(job_ + "-wal");
      std::filesystem::remove(job_ + "-shm");
      std::ofstream(job_, std::ios::binary) << kept;
      test::Database console(job_);
      console.Execute(std::string("PRAGMA synchronous=OFF;") + habit.before);
      test::RecordingHost undisturbed;
      const Set before = Exported(kind, undisturbed);
      InterruptedHost host(moment, [&] {
        console.Result(kEverything);
        console.Result("ROLLBACK");
        console.Result(habit.after);
      });
      const Set set = Exported(kind, host);
      if (!host.Acted()) break;
      EXPECT_EQ(before.size(), 3U);
      EXPECT_TRUE(set.empty() || set == before || set == Exported(kind, undisturbed));
      refused += set.empty() ? 1 : 0;
    }
  }
  EXPECT_EQ(refused > 0, habit.mixes) << refused;
}

constexpr const char* kLogged = "PRAGMA journal_mode=WAL; UPDATE GpsDataTable SET speed = 1";

INSTANTIATE_TEST_SUITE_P(
    Consoles, ChangedJob,
    testing::Values(Habit{"WithJournal", "SELECT 1", "SELECT 1", false},
                    Habit{"KeepingItsJournal", "PRAGMA journal_mode=PERSIST", "SELECT 1", false},
                    Habit{"Appending", kLogged, "SELECT 1", false},
                    Habit{"BringingItsLogOver", kLogged, "PRAGMA wal_checkpoint(FULL)", true},
                    Habit{"BeginningItsLogAnew", kLogged, "PRAGMA wal_checkpoint(TRUNCATE)", true},
                    Habit{"Starting", "PRAGMA journal_mode=WAL", "PRAGMA wal_checkpoint(PASSIVE)",
                          true}),
    [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace kestrin::exports
