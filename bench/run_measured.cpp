// Runs a command several times: run_measured TIMES COMMAND...
// Its output and its messages are thrown away. Prints a line for each run: wall clock seconds, CPU
// seconds (user and system) and peak resident memory in KiB. Fails when the command does.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

bool run(char** command) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

  const auto begin = std::chrono::steady_clock::now();
  pid_t child = 0;
  const int error = posix_spawnp(&child, command[0], &actions, nullptr, command, environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) {
    std::fprintf(stderr, "%s: %s\n", command[0], std::strerror(error));
    return false;
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child) {
    return false;
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
  if (status != 0) {
    std::fprintf(stderr, "%s ended with wait status %d\n", command[0], status);
    return false;
  }
  std::printf("%.6f %.6f %ld\n", wall.count(), seconds(usage.ru_utime) + seconds(usage.ru_stime),
              usage.ru_maxrss);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: run_measured TIMES COMMAND...\n", stderr);
    return EXIT_FAILURE;
  }
  for (long left = std::strtol(argv[1], nullptr, 10); left > 0; --left) {
    if (!run(argv + 2)) {
      return EXIT_FAILURE;
    }
  }
  return EXIT_SUCCESS;
}
