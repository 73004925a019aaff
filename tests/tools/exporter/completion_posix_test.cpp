#include <regex>
#include <set>
#include <sstream>

#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class Completion : public test::ExportCommand {
 protected:
  /// What bash offers for the last of these words behind the program's name, as it hands them
  /// over.
  std::vector<std::string> Offered(std::vector<std::string> words) const {
    const std::string script =
        "source '" KESTRIN_COMPLETION
        "'; COMP_WORDS=(kestrin-export \"$@\"); COMP_CWORD=$#; _kestrin_export; "
        "((${#COMPREPLY[@]})) && printf '%s\\n' \"${COMPREPLY[@]}\"; exit 0";
    words.insert(words.begin(), {"bash", "--norc", "-c", script, "bash"});
    const test::CommandResult run = test::RunCommand(words, folder_.Path().string());
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    std::vector<std::string> offered;
    std::istringstream lines(run.out);
    for (std::string line; std::getline(lines, line);) offered.push_back(line);
    return offered;
  }
};

TEST_F(Completion, OffersEveryOptionOfTheHelpAndNoOther) {
  const std::string help = Run({"--help"}).out;
  const std::regex option("\n  (-h,)?(--[a-z-]+)");
  std::set<std::string> known;
  for (std::sregex_iterator at(help.begin(), help.end(), option), end; at != end; ++at) {
    known.insert((*at)[2]);
  }
  const std::vector<std::string> offered = Offered({"-"});
  EXPECT_EQ(std::set<std::string>(offered.begin(), offered.end()), known) << help;
  EXPECT_THAT(Offered({"--rec"}), ElementsAre("--recursive"));
}

TEST_F(Completion, OffersTheKindsOfTheHelp) {
  const std::string help = Run({"--help"}).out;
  std::string kinds;
  for (const std::string& kind : Offered({"--kind", ""}))
    kinds += (kinds.empty() ? "" : ",") + kind;
  EXPECT_THAT(help, ::testing::HasSubstr("{" + kinds + "}"));
  EXPECT_THAT(Offered({"--kind", "po"}), ElementsAre("poly", "point"));
  EXPECT_THAT(Offered({"--kind", "=", "w"}), ElementsAre("wire"));
  EXPECT_THAT(Offered({"--kind", "="}), ::testing::SizeIs(6));
}

TEST_F(Completion, OffersJobFilesAndFoldersAsJobs) {
  for (const char* name : {"North 40.sqlite", "North.shp", "Northern/a.sqlite"}) {
    Sample(name, 20);
  }
  EXPECT_THAT(Offered({"--json", "No"}), UnorderedElementsAre("North 40.sqlite", "Northern"));
  EXPECT_THAT(Offered({"--json", "North\\ 4"}), ElementsAre("North 40.sqlite"));
  EXPECT_THAT(Offered({"\"North 4"}), ElementsAre("North 40.sqlite"));
  EXPECT_THAT(Offered({"Northern/"}), ElementsAre("Northern/a.sqlite"));
  EXPECT_THAT(Offered({"nothing"}), IsEmpty());
}

TEST_F(Completion, OffersFoldersAloneForOut) {
  Sample("Northern/a.sqlite", 20);
  Sample("North.sqlite", 20);
  EXPECT_THAT(Offered({"--out", "No"}), ElementsAre("Northern"));
}

}  // namespace
}  // namespace kestrin::exporter
