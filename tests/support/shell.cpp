// SPDX-License-Identifier: MIT
#include "support/shell.h"

#include "platform/cancellation_token.h"
#include "platform/environment.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace tarnwick::test {

using namespace std::chrono_literals;

namespace {

QByteArrayList statesOfChildren() {
    QByteArrayList states;
    const auto ourId = QByteArray::number(getpid());
    for (const QString& id : QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[1-9]*")})) {
        QFile file(QStringLiteral("/proc/") + id + QStringLiteral("/stat"));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray stat = file.readAll(); // "id (name) state parent …"
        const auto fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        if (fields.value(1) == ourId)
            states.append(fields.value(0));
    }
    return states;
}

} // namespace

ChildProcess startChild(const CommandLine& command, ChildProcess::Output output) {
    return ChildProcess::start(command, Environment::ofThisProcess(), output);
}

CommandLine shell(const char* script) {
    return {QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QString::fromUtf8(script)}};
}

QByteArray outputOf(const CommandLine& command) {
    const QDeadlineTimer deadline(20s);
    auto child = startChild(command);
    const QByteArray output = child.readOutput(deadline, CancellationToken());
    child.waitForEnd(deadline, 2ms, CancellationToken());
    return output;
}

qsizetype openDescriptors() {
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

int childCount() {
    return static_cast<int>(statesOfChildren().size());
}

int zombieCount() {
    return static_cast<int>(statesOfChildren().count("Z"));
}

bool runsUnderValgrind() {
    return qgetenv("LD_PRELOAD").contains("vgpreload");
}

} // namespace tarnwick::test
