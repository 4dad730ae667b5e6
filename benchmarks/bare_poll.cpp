// SPDX-License-Identifier: MIT
// Runs a tool every five seconds and reads what it prints, and does nothing else: the least that a
// poll can cost a program.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ; // NOLINT(readability-redundant-declaration): not every system declares it

namespace {

constexpr useconds_t pollStep = 500'000;
constexpr useconds_t restOfInterval = 4'500'000;

/// Starts the tool with its output going to `output`.
pid_t start(char** command, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
    pid_t child = -1;
    const int error = posix_spawn(&child, command[0], &actions, nullptr, command, environ);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? child : -1;
}

bool poll(char** command) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return false;
    const pid_t child = start(command, ends[1]);
    close(ends[1]);
    usleep(pollStep);
    char buffer[16384];
    while (read(ends[0], buffer, sizeof buffer) > 0) {
    }
    close(ends[0]);
    return child > 0 && waitpid(child, nullptr, 0) == child;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    while (poll(argv + 1))
        usleep(restOfInterval);
    return 1;
}
