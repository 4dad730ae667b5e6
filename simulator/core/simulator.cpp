// SPDX-License-Identifier: MIT
#include "core/simulator.h"

#include "core/status_document.h"
#include "core/text_tables.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

/// The reply of a command that is not carried out because of its fault.
Reply faultyReply(const Fault& fault) {
    switch (fault.kind) {
    case Fault::Kind::Hang:
        return {.kind = Reply::Kind::Hang};
    case Fault::Kind::Garbage:
        // Bytes that end UTF-8 decoding, and the beginning of a document that never ends.
        return Reply::text("{\"BackendState\": \"Run\xff\xfe\x80ning\", \x01\x02[[[\xc3\x28");
    case Fault::Kind::Flood:
        return {.kind = Reply::Kind::Flood, .out = "tarnwick: all work and no play\n"};
    case Fault::Kind::Crash:
        return {.kind = Reply::Kind::Crash};
    case Fault::Kind::Error:
    case Fault::Kind::Slow:
        break;
    }
    return Reply::failure("error: the daemon is not in the mood (simulated)\n");
}

QByteArray indented(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

} // namespace

Simulator::Simulator(World world, StateStore store, FaultTable faults, QString tun)
    : engine_(std::move(world), std::move(store)), churn_(engine_.world()),
      faults_(std::move(faults)), tun_(std::move(tun)) {}

Reply Simulator::handle(const std::vector<std::string>& arguments, Moment now, int open) {
    const Command command = Command::parse(arguments);
    const QString name = command.name();
    if (name.isEmpty())
        return carryOut(command, now);
    const std::optional<Fault> fault = Command::isName(name) ? faults_.of(name) : std::nullopt;
    const bool isSlow = fault && fault->kind == Fault::Kind::Slow;
    Reply reply = fault && !isSlow ? faultyReply(*fault) : carryOut(command, now);
    if (isSlow)
        reply.delay = fault->delay;
    log_.add(command, arguments, fault, reply, now, open);
    return reply;
}

Reply Simulator::carryOut(const Command& command, Moment now) {
    switch (command.kind) {
    case Command::Kind::Status:
        return status(false, now);
    case Command::Kind::StatusJson:
        return status(true, now);
    case Command::Kind::List:
        return Reply::text(profileTable(engine_.state()).toStdString());
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
        return Reply::text(log_.text());
    case Command::Kind::ClearLog:
        log_.clear();
        return {};
    case Command::Kind::State:
        return describe(now);
    case Command::Kind::Wrong:
        break;
    }
    return Reply::failure(command.problem + '\n');
}

Reply Simulator::status(bool asJson, Moment now) const {
    const QJsonObject document = StatusDocument(engine_, churn_, tun_, now).toJson();
    return Reply::text(asJson ? indented(document).toStdString()
                              : statusTable(document).toStdString());
}

Reply Simulator::setFaults(const QStringList& specs) {
    FaultTable faults = faults_;
    for (const QString& spec : specs) {
        if (!faults.set(spec))
            return Reply::failure("error: \"" + spec.toStdString() + "\" is no fault\n");
    }
    faults_ = faults;
    std::string text;
    for (const QString& spec : faults_.specs())
        text += spec.toStdString() + '\n';
    return Reply::text(std::move(text));
}

Reply Simulator::describe(Moment now) const {
    QJsonArray profiles;
    for (const Profile& profile : engine_.state().profiles) {
        profiles.append(QJsonObject{{u"id"_s, profile.id},
                                    {u"network"_s, profile.network},
                                    {u"account"_s, profile.account},
                                    {u"hostName"_s, profile.hostName},
                                    {u"controlURL"_s, profile.controlUrl}});
    }
    const QJsonObject object{{u"backendState"_s, toString(engine_.backendState(now))},
                             {u"current"_s, engine_.state().currentId},
                             {u"profiles"_s, profiles},
                             {u"faults"_s, QJsonArray::fromStringList(faults_.specs())}};
    return Reply::text(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString() + '\n');
}

} // namespace tarnwick::simulator
