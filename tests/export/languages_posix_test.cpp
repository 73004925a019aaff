#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <locale>
#include <map>
#include <string>

#include "export/exportKinds.h"
#include "tests/support/recordingHost.h"
#include "tests/support/setting.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::exports {
namespace {

/// The language of the process, for C and for C++, as a host that loads the libraries sets it:
/// with commas in numbers, groups of thousands, and other small letters.
class HostLanguage {
 public:
  explicit HostLanguage(const std::string& name) : before_(std::locale::global(std::locale(name))) {
    std::setlocale(LC_ALL, name.c_str());
  }
  ~HostLanguage() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }
  HostLanguage(const HostLanguage&) = delete;
  HostLanguage& operator=(const HostLanguage&) = delete;

 private:
  std::locale before_;
};

std::map<std::string, std::string> SetsOf(const std::string& job) {
  const test::TempFolder folder;
  const auto files = base::NativeFileSystem();
  test::RecordingHost host;
  ExportRun run{host, *files, {.date = {2006, 7, 9}, .lasting = false}};
  std::map<std::string, std::string> sets;
  for (const ExportKind& kind : kExportKinds)
    kind.procedure(folder / std::string(kind.name), job, run);
  for (const ExportKind& kind : kNamedKinds) {
    sets["summary"] += kind.procedure(folder / std::string(kind.name), job, run).summary;
  }
  EXPECT_TRUE(host.messages.empty());
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    sets[entry.path().filename()] = test::FileBytes(entry.path());
  }
  return sets;
}

TEST(SetsInALanguage, AreTheSameToTheByteInEveryLanguageOfTheHost) {
  const test::TempFolder folder;
  const std::string job = folder / "job.sqlite";
  sample::MakeSampleJob(job, {.profile = "two-implements", .rows = 1500});
  const auto plain = SetsOf(job);
  EXPECT_EQ(plain.size(), 16U);
  const test::Setting made("LOCPATH", KESTRIN_LOCALES);
  for (const char* name : {"de_DE.UTF-8", "tr_TR.UTF-8", "ar_EG.UTF-8"}) {
    if (!std::filesystem::exists(std::filesystem::path(KESTRIN_LOCALES) / name)) {
      GTEST_SKIP() << "languages cannot be made here";
    }
    const HostLanguage language(name);
    EXPECT_TRUE(SetsOf(job) == plain) << name;
  }
}

}  // namespace
}  // namespace kestrin::exports
