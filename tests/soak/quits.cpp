// SPDX-License-Identifier: MIT
#include "quits.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QProcess>
#include <QThread>

#include <algorithm>

namespace tarnwick::soak {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int longestLife = 30'000; // milliseconds; a client ends within one second
constexpr auto longestWait = 30s;

} // namespace

// Answers late, so that most clients are left while a command runs; what is asked is done at once.
Quits::Quits(unsigned seed) : random_(seed) {
    for (const auto& key : {u"twkey-harbor-good"_s, u"twkey-fernwood-good"_s})
        daemon_.logIn(key);
    const QJsonArray profiles = daemon_.account().value(u"profiles"_s).toArray();
    for (const QJsonValue& profile : profiles)
        profiles_.append(profile[u"id"_s].toString());
    daemon_.setFaults({u"slow:0.05"_s});
    if (profiles_.size() != 2)
        qFatal("the simulated daemon has no two networks");
}

int Quits::numberBelow(unsigned limit) {
    return static_cast<int>(random_() % limit);
}

QStringList Quits::randomCommands() {
    QStringList commands;
    for (int left = 1 + numberBelow(3); left > 0; --left) {
        const int kind = numberBelow(3);
        commands.append(kind == 0 ? u"up"_s : kind == 1 ? u"down"_s : profiles_[numberBelow(2)]);
    }
    return commands;
}

bool Quits::once() {
    const QStringList commands = randomCommands();
    wanted_.clear();
    for (const QString& command : commands) {
        if (profiles_.contains(command))
            wanted_ << u"switch"_s << u"up"_s;
        else
            wanted_ << command;
    }
    daemon_.tool({u"simulator"_s, u"log"_s, u"clear"_s});
    return runClient(commands, numberBelow(400)) && waitForCommands(wanted_);
}

bool Quits::runClient(const QStringList& commands, int milliseconds) const {
    QProcess client;
    client.setProcessChannelMode(QProcess::ForwardedChannels);
    client.start(QStringLiteral(TARNWICK_SOAK_QUITTER),
                 QStringList{QFileInfo(test::SimulatedDaemon::toolPath()).path(), home_.path(),
                             daemon_.socketPath(), QString::number(milliseconds)} +
                     commands);
    if (!client.waitForFinished(longestLife)) {
        client.kill();
        client.waitForFinished(longestLife);
        return false;
    }
    return client.exitStatus() == QProcess::NormalExit && client.exitCode() == 0;
}

QStringList Quits::askedOfDaemon() const {
    QStringList commands;
    const auto log = daemon_.log();
    for (const QJsonObject& entry : log) {
        const QString command = entry.value(u"command"_s).toString();
        if (command != "status"_L1 && command != "list"_L1)
            commands.append(command);
    }
    return commands;
}

// In any order: on a busy machine the time to keep it is over soon.
bool Quits::waitForCommands(const QStringList& wanted) {
    QStringList sorted = wanted;
    std::ranges::sort(sorted);
    for (const QDeadlineTimer limit(longestWait); !limit.hasExpired(); QThread::msleep(10)) {
        asked_ = askedOfDaemon();
        QStringList found = asked_;
        std::ranges::sort(found);
        if (found == sorted)
            return true;
    }
    return false;
}

QString Quits::account() const {
    return u"wanted \"%1\", asked \"%2\""_s.arg(wanted_.join(u' '), asked_.join(u' '));
}

} // namespace tarnwick::soak
