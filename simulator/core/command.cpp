// SPDX-License-Identifier: MIT
#include "core/command.h"

#include <QCommandLineParser>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

using Kind = Command::Kind;

/// In the order of `Kind`, up to those that exist in the simulator only.
const QStringList& names() {
    static const QStringList list{u"status"_s, u"status"_s, u"list"_s,   u"switch"_s, u"up"_s,
                                  u"down"_s,   u"login"_s,  u"remove"_s, u"wrong"_s};
    return list;
}

Command wrong(const QString& problem) {
    return {.kind = Kind::Wrong, .problem = u"error: "_s + problem};
}

Command unexpected(const QString& argument) {
    return wrong(u"unexpected argument \"%1\""_s.arg(argument));
}

/// A command that takes no (more) arguments.
Command plain(Kind kind, const QStringList& rest) {
    return rest.isEmpty() ? Command{.kind = kind} : unexpected(rest.first());
}

Command parseStatus(const QStringList& rest) {
    return rest.value(0) == "--json"_L1 ? plain(Kind::StatusJson, rest.sliced(1))
                                        : plain(Kind::Status, rest);
}

Command parseSwitch(const QStringList& rest) {
    if (rest.isEmpty())
        return wrong(u"switch needs the id of a profile, or --list"_s);
    if (rest.first() == "--list"_L1)
        return plain(Kind::List, rest.sliced(1));
    return rest.size() == 1 ? Command{.kind = Kind::Switch, .id = rest.first()}
                            : unexpected(rest.at(1));
}

Command parseLogin(const QStringList& rest) {
    QCommandLineParser parser;
    parser.addOptions({{u"login-server"_s, {}, u"URL"_s},
                       {u"authkey"_s, {}, u"KEY"_s},
                       {u"hostname"_s, {}, u"NAME"_s}});
    if (!parser.parse(QStringList(u"login"_s) + rest))
        return wrong(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return unexpected(parser.positionalArguments().first());
    return {.kind = Kind::Login,
            .loginServer = parser.value(u"login-server"_s),
            .authKey = parser.value(u"authkey"_s),
            .hostName = parser.value(u"hostname"_s)};
}

Command parseDebug(const QStringList& rest) {
    if (rest.size() < 3 || rest[0] != "localapi"_L1)
        return wrong(u"debug knows only: localapi METHOD PATH"_s);
    if (rest.size() > 3)
        return unexpected(rest[3]);
    constexpr QLatin1StringView prefix = "/localapi/v0/profiles/"_L1;
    if (!rest[2].startsWith(prefix))
        return {.problem = u"Response status: 404 Not Found\nno such path"_s};
    if (rest[1] != "DELETE"_L1)
        return {.problem = u"Response status: 405 Method Not Allowed\nuse DELETE"_s};
    return {.kind = Kind::Remove, .id = rest[2].sliced(prefix.size())};
}

Command parseSimulator(const QStringList& arguments) {
    if (arguments.isEmpty())
        return wrong(u"simulator needs one of: fault, log, state"_s);
    const QString& what = arguments.first();
    const QStringList rest = arguments.sliced(1);
    if (what == "fault"_L1)
        return {.kind = Kind::Faults, .faults = rest};
    if (what == "state"_L1)
        return plain(Kind::State, rest);
    if (what != "log"_L1)
        return unexpected(what);
    return rest.value(0) == "clear"_L1 ? plain(Kind::ClearLog, rest.sliced(1))
                                       : plain(Kind::Log, rest);
}

} // namespace

Command Command::parse(const QByteArrayList& arguments) {
    QStringList rest;
    for (const QByteArray& argument : arguments)
        rest.append(QString::fromUtf8(argument));
    if (rest.isEmpty())
        return wrong(u"no command"_s);
    const QString name = rest.takeFirst();
    if (name == "status"_L1)
        return parseStatus(rest);
    if (name == "switch"_L1)
        return parseSwitch(rest);
    if (name == "up"_L1)
        return plain(Kind::Up, rest);
    if (name == "down"_L1)
        return plain(Kind::Down, rest);
    if (name == "login"_L1)
        return parseLogin(rest);
    if (name == "debug"_L1)
        return parseDebug(rest);
    if (name == "simulator"_L1)
        return parseSimulator(rest);
    return wrong(u"unknown command \"%1\""_s.arg(name));
}

QString Command::name() const {
    return names().value(static_cast<qsizetype>(kind));
}

bool Command::isName(const QString& name) {
    return name != names().last() && names().contains(name);
}

} // namespace tarnwick::simulator
