#include <map>
#include <set>
#include <sstream>

#include "tests/tools/exporter/exportFixture.h"

/// What the language and the zone of a computer change of its sets, and what they do not.

namespace kestrin::exporter {
namespace {

using test::CommandResult;
using test::FileBytes;

class OtherSurroundings : public test::ExportCommand {
 protected:
  OtherSurroundings() { Sample("job.sqlite", 400); }

  /// The files of all five sets.
  std::map<std::string, std::string> Sets(const std::vector<std::string>& environment) {
    const std::string folder = "sets" + std::to_string(++runs_);
    said_ =
        Run({"--kind", "all", "--kind", "net", "--base", folder + "/x", "job.sqlite"}, environment);
    EXPECT_EQ(said_.code, 0) << said_.err;
    std::map<std::string, std::string> sets;
    for (const auto& entry : std::filesystem::directory_iterator(folder_ / folder)) {
      sets[entry.path().filename()] = FileBytes(entry.path());
    }
    EXPECT_EQ(sets.size(), 15U);
    return sets;
  }

  CommandResult said_;

 private:
  int runs_ = 0;
};

TEST_F(OtherSurroundings, LanguagesChangeNoByteOfASet) {
  const std::vector<std::string> telling{"--json", "--kind", "net", "--base", "y", "job.sqlite"};
  const auto plain = Sets({"LC_ALL=C"});
  for (const char* language : {"de_DE.UTF-8", "tr_TR.UTF-8", "ar_EG.UTF-8"}) {
    const std::string made = KESTRIN_LOCALES + std::string("/") + language;
    if (!std::filesystem::exists(made)) GTEST_SKIP() << "languages cannot be made here";
    const std::vector<std::string> there{std::string("LOCPATH=") + KESTRIN_LOCALES,
                                         std::string("LC_ALL=") + language};
    EXPECT_TRUE(Sets(there) == plain) << language;
    EXPECT_EQ(said_.err, "");
    EXPECT_EQ(Run(telling, there).out, Run(telling).out);
  }
}

TEST_F(OtherSurroundings, ZonesChangeNothingOfASetButTheDayItWasMade) {
  auto plain = Sets({"TZ=UTC"});
  // Years since 1900, month and day.
  const auto takeDay = [](std::string& bytes) {
    std::ostringstream day;
    for (std::size_t i = 1; i <= 3; ++i) {
      day << int{static_cast<unsigned char>(bytes[i])} - (i == 1 ? 100 : 0) << ' ';
    }
    bytes.erase(1, 3);
    return day.str();
  };
  for (auto& [name, bytes] : plain) {
    if (name.ends_with(".dbf")) takeDay(bytes);
  }
  for (const char* zone :
       {"Asia/Kathmandu", "Pacific/Apia", "America/St_Johns", "<+1337>-13:37", "<-1159>11:59"}) {
    const std::vector<std::string> there{std::string("TZ=") + zone};
    const auto day = [&] {
      return test::RunCommand({"date", "+%-y %-m %-d "}, folder_.Path().string(), there).out;
    };
    const std::string before = day();
    auto sets = Sets(there);
    const std::set<std::string> days{before.substr(0, before.find('\n')),
                                     day().substr(0, before.find('\n'))};
    for (auto& [name, bytes] : sets) {
      if (name.ends_with(".dbf")) {
        EXPECT_TRUE(days.contains(takeDay(bytes))) << zone;
      }
    }
    EXPECT_TRUE(sets == plain) << zone;
  }
}

class AnyName : public test::ExportCommand, public ::testing::WithParamInterface<std::string> {};

TEST_P(AnyName, WillDoForAJobAndForTheFolderOfItsSets) {
  const std::string& name = GetParam();
  Sample("plain.sqlite", 50);
  ASSERT_EQ(Run({"--kind", "wire", "--base", "plain", "plain.sqlite"}).code, 0);
  std::filesystem::create_directory(folder_.Path() / "jobs");
  const std::filesystem::path job = folder_.Path() / "jobs" / (name + ".sqlite");
  std::filesystem::copy_file(folder_ / "plain.sqlite", job);
  std::filesystem::copy_file(job, folder_.Path() / (name + ".sqlite"));

  const CommandResult based =
      Run({"--kind", "wire", "--base=" + name + "/" + name, "--", name + ".sqlite"});
  EXPECT_EQ(based.err, "");
  EXPECT_EQ(based.out, name + "/" + name + "_WIRE.shp: 50 epochs\n");
  for (const char* extension : {".shp", ".shx", ".dbf"}) {
    const std::filesystem::path file = folder_.Path() / name / (name + "_WIRE" + extension);
    EXPECT_TRUE(FileBytes(file) == FileBytes(folder_ / ("plain_WIRE" + std::string(extension))));
  }
  const CommandResult named =
      Run({"--kind", "wire", "--out=out " + name, "--recursive", "--", "jobs"});
  EXPECT_EQ(named.err, "");
  EXPECT_EQ(named.code, 0);
  int files = 0;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator(folder_.Path() / ("out " + name))) {
    files += entry.is_regular_file() ? 1 : 0;
  }
  EXPECT_EQ(files, 3);
  EXPECT_EQ(FilesBelow("jobs"), 1);
  EXPECT_TRUE(FileBytes(job) == FileBytes(folder_ / "plain.sqlite"));
}

INSTANTIATE_TEST_SUITE_P(Names, AnyName,
                         ::testing::Values("Süd-Äcker ß", "  blanks  ", "dot.", "-dash", "it's",
                                           "j\xe4\xff", "\"a\" $b `c` 100%", "a\\b*?", "İıŞ",
                                           "شمال", std::string(200, 'x')),
                         [](const auto& instance) { return "N" + std::to_string(instance.index); });

}  // namespace
}  // namespace kestrin::exporter
