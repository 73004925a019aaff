#include "tests/tools/exporter/command.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace kestrin::test {
namespace {

[[noreturn]] void Become(const std::vector<std::string>& words, const std::string& folder) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  // Tests that run in the background are deaf to Ctrl-C, and so would be what they start.
  for (const int stop : {SIGINT, SIGTERM, SIGHUP}) std::signal(stop, SIG_DFL);
  if (chdir(folder.c_str()) == 0) execvp(arguments[0], arguments.data());
  _exit(127);
}

void Redirect(const std::string& path, int stream) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (file < 0 || dup2(file, stream) < 0) _exit(126);
}

int CodeOf(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status); }

}  // namespace

struct Command::Process {
  pid_t id = -1;
  int status = 0;
  bool ended = false;
};

Command::Command(const std::vector<std::string>& words, const std::string& folder,
                 const std::vector<std::string>& environment)
    : process_(std::make_unique<Process>()) {
  const std::string out = kept_ / "out", err = kept_ / "err";
  process_->id = fork();
  if (process_->id < 0) throw std::runtime_error("cannot fork");
  if (process_->id > 0) return;
  for (const std::string& setting : environment) {
    const std::size_t equals = setting.find('=');
    setenv(setting.substr(0, equals).c_str(), setting.c_str() + equals + 1, 1);
  }
  Redirect(out, STDOUT_FILENO);
  Redirect(err, STDERR_FILENO);
  Become(words, folder);
}

Command::~Command() {
  if (Ended()) return;
  Send(SIGKILL);
  Wait();
}

void Command::Send(int signal) const { kill(process_->id, signal); }

bool Command::Ended() {
  Process& process = *process_;
  if (!process.ended) process.ended = waitpid(process.id, &process.status, WNOHANG) == process.id;
  return process.ended;
}

CommandResult Command::Wait() {
  if (!process_->ended) waitpid(process_->id, &process_->status, 0);
  process_->ended = true;
  return {CodeOf(process_->status), FileBytes(kept_ / "out"), FileBytes(kept_ / "err")};
}

CommandResult RunCommand(const std::vector<std::string>& words, const std::string& folder,
                         const std::vector<std::string>& environment) {
  return Command(words, folder, environment).Wait();
}

std::string RunOnTerminal(const std::vector<std::string>& words, const std::string& folder,
                          int code) {
  int terminal = -1;
  const winsize size{25, 120, 0, 0};
  const pid_t process = forkpty(&terminal, nullptr, nullptr, &size);
  if (process < 0) throw std::runtime_error("cannot open a terminal");
  if (process == 0) {
    Redirect("/dev/null", STDOUT_FILENO);
    Become(words, folder);
  }
  std::string drawn;
  char bytes[4096];
  // Reading fails when the other end is gone.
  for (ssize_t count; (count = read(terminal, bytes, sizeof bytes)) > 0;) {
    drawn.append(bytes, static_cast<std::size_t>(count));
  }
  close(terminal);
  int status = 0;
  waitpid(process, &status, 0);
  if (CodeOf(status) != code)
    throw std::runtime_error("ended with " + std::to_string(CodeOf(status)));
  return drawn;
}

}  // namespace kestrin::test
