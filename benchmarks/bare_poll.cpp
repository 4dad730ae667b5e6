// SPDX-License-Identifier: MIT
// Runs a tool every five seconds, reads what it prints, decodes it and compares it with the last,
// and does nothing else: the least that a poll can cost a program.
#include <QByteArray>
#include <QJsonDocument>

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

QByteArray readToTheEnd(int from) {
    QByteArray output;
    char buffer[16384];
    for (ssize_t count = 0; (count = read(from, buffer, sizeof buffer)) > 0;)
        output.append(buffer, count);
    return output;
}

bool poll(char** command, QJsonDocument& last, int& changes) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return false;
    const pid_t child = start(command, ends[1]);
    close(ends[1]);
    usleep(pollStep);
    const QByteArray output = readToTheEnd(ends[0]);
    close(ends[0]);
    const QJsonDocument document = QJsonDocument::fromJson(output);
    if (document != last) {
        last = document;
        ++changes;
    }
    return child > 0 && waitpid(child, nullptr, 0) == child;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    QJsonDocument last;
    int changes = 0;
    while (poll(argv + 1, last, changes))
        usleep(restOfInterval);
    return changes;
}
