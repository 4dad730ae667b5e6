// SPDX-License-Identifier: MIT
#include "core/engine.h"

#include "core/names.h"

#include <QUrl>

#include <utility>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

bool isControlServer(const QString& text) {
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && url.scheme() == "https"_L1 && !url.host().isEmpty();
}

/// A short id; another `attempt` gives another, should it be taken.
QString profileId(const AuthKey& key, int attempt) {
    return digest(u"%1\n%2\n%3"_s.arg(key.network, key.account, QString::number(attempt))).left(4);
}

} // namespace

QString toString(Engine::BackendState state) {
    // In the order of the enumerators.
    static const QStringList names{u"NeedsLogin"_s, u"Stopped"_s, u"Starting"_s, u"Running"_s};
    return names.at(static_cast<qsizetype>(state));
}

Engine::Engine(World world, QString statePath)
    : world_(std::move(world)), statePath_(std::move(statePath)), state_(State::load(statePath_)) {
    state_.profiles.removeIf([this](const Profile& profile) {
        const Network* network = world_.network(profile.network);
        return network == nullptr || network->account(profile.account) == nullptr;
    });
    if (state_.current() == nullptr)
        leaveCurrent();
}

void Engine::leaveCurrent() {
    state_.currentId.clear();
    state_.wantRunning = false;
}

Engine::BackendState Engine::backendState(Moment now) const {
    const Profile* profile = state_.current();
    if (profile == nullptr ||
        (profile->expiresAt != 0 && now.sinceEpoch.count() >= profile->expiresAt))
        return BackendState::NeedsLogin;
    if (!state_.wantRunning)
        return BackendState::Stopped;
    return now.sinceStart < startedAt_ + world_.startingTime ? BackendState::Starting
                                                             : BackendState::Running;
}

void Engine::start(Moment now) {
    state_.wantRunning = true;
    startedAt_ = now.sinceStart;
    save();
}

Reply Engine::up(Moment now) {
    const BackendState before = backendState(now);
    if (before == BackendState::NeedsLogin)
        return Reply::failure(
            u"error: this device is not logged in; run \"tarnwick login\" first"_s);
    if (before == BackendState::Stopped)
        start(now);
    return {};
}

Reply Engine::down() {
    if (!state_.wantRunning)
        return Reply::text(u"Tarnwick was already stopped.\n"_s);
    state_.wantRunning = false;
    save();
    return {};
}

QString Engine::refusal(const Command& command) const {
    if (!isControlServer(command.loginServer))
        return u"error: \"%1\" is not the address of a control server"_s.arg(command.loginServer);
    if (command.authKey.isEmpty())
        return u"error: an auth key is needed to log in"_s;
    const AuthKey* key = world_.authKey(command.authKey);
    if (key == nullptr)
        return u"error: the control server refused the log-in: unknown auth key"_s;
    if (key->state == "expired"_L1)
        return u"error: the control server refused the log-in: the auth key has expired"_s;
    if (key->state == "used"_L1 || state_.usedKeys.contains(digest(key->key)))
        return u"error: the control server refused the log-in: the auth key has been used"_s;
    return {};
}

Profile& Engine::profileFor(const AuthKey& key) {
    for (Profile& profile : state_.profiles) {
        if (profile.network == key.network && profile.account == key.account)
            return profile;
    }
    int attempt = 0;
    while (state_.profile(profileId(key, attempt)) != nullptr)
        ++attempt;
    Profile profile;
    profile.id = profileId(key, attempt);
    profile.network = key.network;
    profile.account = key.account;
    profile.hostName = world_.network(key.network)->account(key.account)->hostName;
    state_.profiles.append(profile);
    return state_.profiles.last();
}

Reply Engine::login(const Command& command, Moment now) {
    const QString problem = refusal(command);
    if (!problem.isEmpty())
        return Reply::failure(problem);
    const AuthKey& key = *world_.authKey(command.authKey);
    if (key.once)
        state_.usedKeys.append(digest(key.key));
    Profile& profile = profileFor(key);
    profile.controlUrl = command.loginServer;
    if (!command.hostName.isEmpty())
        profile.hostName = command.hostName;
    profile.expiresAt = key.term.count() > 0 ? (now.sinceEpoch + key.term).count() : 0;
    state_.currentId = profile.id;
    start(now);
    return Reply::text(u"Success.\n"_s);
}

Reply Engine::switchTo(const QString& id, Moment now) {
    const Profile* profile = state_.profile(id);
    if (profile == nullptr)
        return Reply::failure(
            u"error: no profile \"%1\"; see \"tarnwick switch --list\""_s.arg(id));
    if (id == state_.currentId)
        return Reply::text(u"Already on profile \"%1\".\n"_s.arg(profile->account));
    state_.currentId = id;
    startedAt_ = now.sinceStart;
    save();
    return Reply::text(u"Switched to profile \"%1\".\n"_s.arg(profile->account));
}

Reply Engine::remove(const QString& id) {
    const auto removed =
        state_.profiles.removeIf([&id](const Profile& profile) { return profile.id == id; });
    if (removed == 0)
        return Reply::failure(u"Response status: 404 Not Found\nprofile not found"_s);
    if (id == state_.currentId)
        leaveCurrent();
    save();
    return {};
}

} // namespace tarnwick::simulator
