#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/support/tempFolder.h"

namespace kestrin::test {

/// How a command ended and what it said.
struct CommandResult {
  int code = -1;  ///< exit code; on POSIX systems 1000 plus the signal that killed it
  std::string out;
  std::string err;
};

/// A real program being run, its output kept in files.
class Command {
 public:
  /// Starts a program in a folder, with further "NAME=value" in its environment.
  Command(const std::vector<std::string>& words, const std::string& folder,
          const std::vector<std::string>& environment = {});
  ~Command();
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;

  /// On Windows only SIGINT, to all on this process's console, and SIGKILL.
  void Send(int signal) const;
  /// Whether it has ended already.
  bool Ended();
  CommandResult Wait();

 private:
  TempFolder kept_;
  struct Process;
  std::unique_ptr<Process> process_;
};

CommandResult RunCommand(const std::vector<std::string>& words, const std::string& folder,
                         const std::vector<std::string>& environment = {});

/// Runs a program with a terminal as its stderr and returns what it drew there; not
/// on Windows. It must end with this code.
std::string RunOnTerminal(const std::vector<std::string>& words, const std::string& folder,
                          int code = 0);

}  // namespace kestrin::test
