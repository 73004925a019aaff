#include <sstream>

#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using test::CommandResult;

class ExportFolders : public test::ExportCommand {
 protected:
  /// The jobs found, by the lines of their summaries, in their order.
  std::string Found(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "--summary");
    const CommandResult run = Run(arguments);
    EXPECT_EQ(run.code, 0) << run.err;
    std::string found;
    std::istringstream lines(run.out);
    for (std::string line; std::getline(lines, line);) {
      found += (found.empty() ? "" : " ") + line.substr(0, line.find(": "));
    }
    return found;
  }

  /// A set and the job's copy, where the window puts them.
  void LeaveExported(const std::string& folder, const std::string& name) const {
    Sample(folder + "/" + name + "/2025Jun3/" + name + ".sqlite", 20);
    Run({"--kind", "boom", "--base", folder + "/" + name + "/2025Jun3/" + name + "_2025Jun3",
         folder + "/" + name + "/2025Jun3/" + name + ".sqlite"});
  }
};

TEST_F(ExportFolders, EveryJobInAFolderIsExportedInTheOrderOfItsName) {
  for (const char* name : {"stick/b.sqlite", "stick/a.sqlite", "stick/below/c.sqlite"}) {
    Sample(name, 20);
  }
  const CommandResult run = Run({"--kind", "wire", "--out", "sets", "stick"});
  EXPECT_EQ(run.out,
            "sets/a/2025Jun3/a_2025Jun3_WIRE.shp: 20 epochs\n"
            "sets/b/2025Jun3/b_2025Jun3_WIRE.shp: 20 epochs\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
}

TEST_F(ExportFolders, OnlyFilesOfTheDialogsPatternAreJobs) {
  for (const char* name : {"s/a.sqlite", "s/b.sqlite.tmp", "s/csqlite", "s/._a.sqlite"}) {
    Sample(name, 20);
  }
  std::filesystem::create_directory(folder_.Path() / "s/folder.sqlite");
  EXPECT_EQ(Found({"s/"}), "s/a.sqlite");
}

TEST_F(ExportFolders, RecursiveTakesFilesBeforeFoldersAndLeavesOutWhatSystemsKeep) {
  for (const char* name :
       {"s/z.sqlite", "s/b/c/d.sqlite", "s/b/a.sqlite", "s/a/x.sqlite", "s/.Trash/t.sqlite",
        "s/$RECYCLE.BIN/r.sqlite", "s/System Volume Information/v.sqlite"}) {
    Sample(name, 20);
  }
  EXPECT_EQ(Found({"--recursive", "s"}), "s/z.sqlite s/a/x.sqlite s/b/a.sqlite s/b/c/d.sqlite");
}

TEST_F(ExportFolders, CopiesBesideTheirSetsAreNotFoundAgain) {
  Sample("s/North.sqlite", 20);
  LeaveExported("s/TrevaskData", "North");
  LeaveExported("s/elsewhere/sets", "South");
  // A job of somebody who keeps a folder of that name is one.
  Sample("s/TrevaskData/East.sqlite", 20);
  EXPECT_EQ(Found({"--recursive", "s"}), "s/North.sqlite s/TrevaskData/East.sqlite");
  EXPECT_EQ(Found({"s/TrevaskData/North/2025Jun3"}), "s/TrevaskData/North/2025Jun3/North.sqlite");
}

TEST_F(ExportFolders, JobsOfOneNameInTwoFoldersShareATargetAndTheSecondSaysSo) {
  Sample("s/job.sqlite", 20);
  Sample("s/b/job.sqlite", 20);
  const CommandResult run = Run({"--kind", "wire", "--recursive", "s"});
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err,
            "kestrin-export: s/b/job.sqlite: wire: its sets would take the names of those of "
            "s/job.sqlite\n");
  EXPECT_EQ(FilesBelow("TrevaskData"), 3);
}

TEST_F(ExportFolders, AFolderWithoutAJobIsNamedAndTheOthersAreExported) {
  Sample("full/below/a.sqlite", 20);
  std::filesystem::create_directory(folder_.Path() / "empty");
  const CommandResult flat = Run({"--kind", "wire", "--quiet", "full", "full/below"});
  EXPECT_EQ(
      flat.err,
      "kestrin-export: full: no job file (*.sqlite) in it; --recursive looks below as well\n");
  EXPECT_EQ(flat.code, 1);
  EXPECT_TRUE(HasSet("TrevaskData/a/2025Jun3/a_2025Jun3_WIRE"));
  const CommandResult deep = Run({"--summary", "--recursive", "empty", "full"});
  EXPECT_EQ(deep.err, "kestrin-export: empty: no job file (*.sqlite) in it or below\n");
  EXPECT_EQ(deep.code, 1);
  EXPECT_NE(deep.out, "");
}

TEST_F(ExportFolders, FoldersOfLettersBeyondAsciiAreWalked) {
  Sample("Höhe 2/tief 麦/Grüner Schlag.sqlite", 20);
  EXPECT_EQ(Found({"--recursive", "Höhe 2"}), "Höhe 2/tief 麦/Grüner Schlag.sqlite");
}

}  // namespace
}  // namespace kestrin::exporter
