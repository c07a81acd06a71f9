// child_process.h - runs a piece of a test in a process of its own, for what cannot be undone in
// this one: limits, another user, a namespace, a violent end.
#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <system_error>

namespace cantorix {

inline constexpr int kChildSkipped = 77;
inline constexpr uid_t kOtherUser = 65534;

// Starts `body` and gives the process id; its return value is the exit status, 99 after an
// exception. The child ends without running anything of the test program.
template <typename Body>
pid_t StartChild(Body body) {
  const pid_t child = ::fork();
  if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (child > 0) return child;
  int status = 99;
  try {
    status = body();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "child: %s\n", error.what());
  }
  ::_exit(status);
}

// Runs `body` to its end and gives its exit status.
template <typename Body>
int InChild(Body body) {
  const pid_t child = StartChild(body);
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
  return WEXITSTATUS(status);
}

// In a child of root: becomes a user whom permissions bind. False when this is not root.
inline bool BecomeOtherUser() {
  return ::getuid() == 0 && ::setgroups(0, nullptr) == 0 && ::setgid(kOtherUser) == 0 &&
         ::setuid(kOtherUser) == 0;
}

// Whether that user gets to the folder of temporary files: a private one keeps others out.
inline bool OtherUserReachesTemporaryFolders() {
  const auto folder = std::filesystem::temp_directory_path();
  return InChild([&] { return BecomeOtherUser() && ::access(folder.c_str(), X_OK) == 0; }) == 1;
}

}  // namespace cantorix
