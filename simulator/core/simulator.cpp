// SPDX-License-Identifier: MIT
#include "core/simulator.h"

#include "core/listings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The reply of a command that is not carried out because of its fault.
Reply faultyReply(const QString& fault) {
    if (fault == "hang"_L1)
        return {.kind = Reply::Kind::Hang};
    if (fault == "garbage"_L1) // invalid UTF-8, in a document that is cut short
        return {.out = "{\"BackendState\": \"Run\xff\xfe\x80ning\", \x01\x02[[[\xc3\x28"};
    if (fault == "flood"_L1)
        return {.kind = Reply::Kind::Flood, .out = "tarnwick: all work and no play\n"};
    if (fault == "crash"_L1)
        return {.kind = Reply::Kind::Crash};
    return Reply::failure(u"error: the daemon is not in the mood (simulated)"_s);
}

/// By two blanks a level, where Qt takes four: the status of a thousand peers then fits into a pipe
/// of a mebibyte.
QByteArray narrowlyIndented(const QJsonDocument& document) {
    QByteArray narrow;
    for (const QByteArray& line : document.toJson().split('\n')) {
        qsizetype blanks = 0;
        while (blanks < line.size() && line.at(blanks) == ' ')
            ++blanks;
        narrow += line.sliced(blanks / 2) + '\n';
    }
    narrow.chop(1); // the text ended with a line break already
    return narrow;
}

} // namespace

Simulator::Simulator(World world, QString statePath, Faults faults, QString tun)
    : engine_(std::move(world), std::move(statePath)), faults_(std::move(faults)),
      tun_(std::move(tun)) {}

Reply Simulator::handle(const QByteArrayList& arguments, Moment now, int open) {
    const Command command = Command::parse(arguments);
    const QString name = command.name();
    if (name.isEmpty())
        return carryOut(command, now);
    const std::optional<Fault> fault = Command::isName(name) ? faults_.of(name) : std::nullopt;
    const bool isCarriedOut = !fault || fault->delay;
    Reply reply = isCarriedOut ? carryOut(command, now) : faultyReply(fault->text);
    reply.delay = fault ? fault->delay.value_or(0ms) : 0ms;
    log_.add(command, arguments, fault, reply, now, open);
    return reply;
}

Reply Simulator::carryOut(const Command& command, Moment now) {
    switch (command.kind) {
    case Command::Kind::Status:
        return Reply::text(statusTable(statusDocument(engine_, tun_, now)));
    case Command::Kind::StatusJson:
        return {.out = narrowlyIndented(QJsonDocument(statusDocument(engine_, tun_, now)))};
    case Command::Kind::List:
        return Reply::text(profileTable(engine_.state()));
    case Command::Kind::Switch:
        return engine_.switchTo(command.id, now);
    case Command::Kind::Up:
        return engine_.up(now);
    case Command::Kind::Down:
        return engine_.down();
    case Command::Kind::Login:
        return engine_.login(command, now);
    case Command::Kind::Remove:
        return engine_.remove(command.id);
    case Command::Kind::Faults:
        return setFaults(command.faults);
    case Command::Kind::Log:
        return {.out = log_.text()};
    case Command::Kind::ClearLog:
        log_.clear();
        return {};
    case Command::Kind::State:
        return describe(now);
    case Command::Kind::Wrong:
        break;
    }
    return Reply::failure(command.problem);
}

Reply Simulator::setFaults(const QStringList& specs) {
    Faults faults = faults_;
    for (const QString& spec : specs) {
        if (!faults.set(spec))
            return Reply::failure(u"error: \"%1\" is no fault"_s.arg(spec));
    }
    faults_ = faults;
    QString text;
    for (const QString& spec : faults_.specs())
        text += spec + u'\n';
    return Reply::text(text);
}

Reply Simulator::describe(Moment now) const {
    QJsonArray profiles;
    for (const Profile& profile : engine_.state().profiles)
        profiles.append(profile.toJson());
    const QJsonObject object{{u"backendState"_s, toString(engine_.backendState(now))},
                             {u"current"_s, engine_.state().currentId},
                             {u"profiles"_s, profiles},
                             {u"faults"_s, QJsonArray::fromStringList(faults_.specs())}};
    return {.out = QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n'};
}

} // namespace tarnwick::simulator
