#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <functional>
#include <utility>

/// Processes of a test's own; POSIX systems only.

namespace kestrin::test {

/// Runs `action` in a process of its own, which ends with what it returns.
inline pid_t Fork(const std::function<int()>& action) {
  const pid_t child = fork();
  if (child == 0) {
    int code = 99;
    try {
      code = action();
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(code);
  }
  return child;
}

/// The exit code, or a signal's number made negative.
inline int Wait(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// Killed at the end of the scope, also of a test that fails.
class Child {
 public:
  explicit Child(pid_t child) : child_(child) {}
  ~Child() {
    if (child_ < 0) return;
    kill(child_, SIGKILL);
    EXPECT_EQ(Wait(child_), -SIGKILL);
  }
  Child(Child&& other) noexcept : child_(std::exchange(other.child_, -1)) {}

 private:
  pid_t child_;
};

}  // namespace kestrin::test
