// SPDX-License-Identifier: MIT
#include "core/command.h"

#include <span>
#include <string_view>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

using Arguments = std::span<const std::string>;
using Kind = Command::Kind;

Command wrong(std::string problem) {
    return {.kind = Kind::Wrong, .problem = "error: " + std::move(problem)};
}

Command unexpected(const std::string& argument) {
    return wrong("unexpected argument \"" + argument + "\"");
}

Command plain(Kind kind, Arguments rest) {
    return rest.empty() ? Command{.kind = kind} : unexpected(rest.front());
}

Command parseStatus(Arguments rest) {
    if (!rest.empty() && rest.front() == "--json")
        return plain(Kind::StatusJson, rest.subspan(1));
    return plain(Kind::Status, rest);
}

Command parseSwitch(Arguments rest) {
    if (rest.empty())
        return wrong("switch needs the id of a profile, or --list");
    if (rest.front() == "--list")
        return plain(Kind::List, rest.subspan(1));
    if (rest.size() > 1)
        return unexpected(rest[1]);
    return {.kind = Kind::Switch, .id = QString::fromStdString(rest.front())};
}

/// Takes the value of `flag` off the front: "FLAG=VALUE" or "FLAG" and "VALUE".
bool takeFlag(Arguments& rest, std::string_view flag, QString& value) {
    const std::string& first = rest.front();
    if (first == flag && rest.size() > 1) {
        value = QString::fromStdString(rest[1]);
        rest = rest.subspan(2);
        return true;
    }
    if (first.size() <= flag.size() || !first.starts_with(flag) || first[flag.size()] != '=')
        return false;
    value = QString::fromStdString(first.substr(flag.size() + 1));
    rest = rest.subspan(1);
    return true;
}

Command parseLogin(Arguments rest) {
    Command command{.kind = Kind::Login};
    while (!rest.empty()) {
        const bool known = takeFlag(rest, "--login-server", command.loginServer) ||
                           takeFlag(rest, "--authkey", command.authKey) ||
                           takeFlag(rest, "--hostname", command.hostName);
        if (!known)
            return unexpected(rest.front());
    }
    return command;
}

Command parseDebug(Arguments rest) {
    if (rest.size() < 3 || rest[0] != "localapi")
        return wrong("debug knows only: localapi METHOD PATH");
    if (rest.size() > 3)
        return unexpected(rest[3]);
    constexpr std::string_view prefix = "/localapi/v0/profiles/";
    if (!rest[2].starts_with(prefix))
        return {.kind = Kind::Wrong, .problem = "Response status: 404 Not Found\nno such path"};
    if (rest[1] != "DELETE")
        return {.kind = Kind::Wrong,
                .problem = "Response status: 405 Method Not Allowed\nuse DELETE"};
    return {.kind = Kind::Remove, .id = QString::fromStdString(rest[2].substr(prefix.size()))};
}

Command parseSimulator(Arguments rest) {
    if (rest.empty())
        return wrong("simulator needs one of: fault, log, state");
    const std::string& what = rest.front();
    rest = rest.subspan(1);
    if (what == "state")
        return plain(Kind::State, rest);
    if (what == "log" && !rest.empty() && rest.front() == "clear")
        return plain(Kind::ClearLog, rest.subspan(1));
    if (what == "log")
        return plain(Kind::Log, rest);
    if (what != "fault")
        return unexpected(what);
    Command command{.kind = Kind::Faults};
    for (const std::string& spec : rest)
        command.faults.append(QString::fromStdString(spec));
    return command;
}

} // namespace

Command Command::parse(const std::vector<std::string>& arguments) {
    if (arguments.empty())
        return wrong("no command");
    const std::string& name = arguments.front();
    const Arguments rest = Arguments(arguments).subspan(1);
    if (name == "status")
        return parseStatus(rest);
    if (name == "switch")
        return parseSwitch(rest);
    if (name == "up")
        return plain(Kind::Up, rest);
    if (name == "down")
        return plain(Kind::Down, rest);
    if (name == "login")
        return parseLogin(rest);
    if (name == "debug")
        return parseDebug(rest);
    if (name == "simulator")
        return parseSimulator(rest);
    return wrong("unknown command \"" + name + "\"");
}

QString Command::name() const {
    switch (kind) {
    case Kind::Status:
    case Kind::StatusJson:
        return u"status"_s;
    case Kind::List:
        return u"list"_s;
    case Kind::Switch:
        return u"switch"_s;
    case Kind::Up:
        return u"up"_s;
    case Kind::Down:
        return u"down"_s;
    case Kind::Login:
        return u"login"_s;
    case Kind::Remove:
        return u"remove"_s;
    case Kind::Wrong:
        return u"wrong"_s;
    case Kind::Faults:
    case Kind::Log:
    case Kind::ClearLog:
    case Kind::State:
        break;
    }
    return {};
}

bool Command::isName(const QString& name) {
    static const QStringList names = {u"status"_s, u"list"_s,  u"switch"_s, u"up"_s,
                                      u"down"_s,   u"login"_s, u"remove"_s};
    return names.contains(name);
}

} // namespace tarnwick::simulator
