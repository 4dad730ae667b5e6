// SPDX-License-Identifier: MIT
#include "core/engine.h"

#include "core/names.h"

#include <QUrl>

#include <cmath>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

std::chrono::milliseconds milliseconds(double seconds) {
    return std::chrono::milliseconds(std::llround(seconds * 1000));
}

Reply failure(const QString& sentence) {
    return Reply::failure((sentence + u'\n').toStdString());
}

bool isServer(const QString& text) {
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && url.scheme() == "https"_L1 && !url.host().isEmpty();
}

bool hasLapsed(const Profile& profile, Moment now) {
    return profile.expiresAt != 0 && now.sinceEpoch.count() >= profile.expiresAt;
}

} // namespace

Engine::Engine(World world, StateStore store)
    : world_(std::move(world)), store_(std::move(store)), state_(store_.load()) {
    forgetUnknownNetworks();
}

void Engine::forgetUnknownNetworks() {
    state_.profiles.removeIf([this](const Profile& profile) {
        const Network* network = world_.network(profile.network);
        return network == nullptr || network->account(profile.account) == nullptr;
    });
    if (state_.current() == nullptr) {
        state_.currentId.clear();
        state_.wantRunning = false;
    }
}

BackendState Engine::backendState(Moment now) const {
    const Profile* profile = state_.current();
    if (profile == nullptr || hasLapsed(*profile, now))
        return BackendState::NeedsLogin;
    if (!state_.wantRunning)
        return BackendState::Stopped;
    if (now.sinceStart < startedAt_ + milliseconds(world_.startingSeconds))
        return BackendState::Starting;
    return BackendState::Running;
}

void Engine::start(Moment now) {
    state_.wantRunning = true;
    startedAt_ = now.sinceStart;
    store_.save(state_);
}

Reply Engine::up(Moment now) {
    const BackendState before = backendState(now);
    if (before == BackendState::NeedsLogin)
        return failure(u"error: this device is not logged in; run \"tarnwick login\" first"_s);
    if (before == BackendState::Stopped)
        start(now);
    return {};
}

Reply Engine::down() {
    if (!state_.wantRunning)
        return Reply::text("Tarnwick was already stopped.\n");
    state_.wantRunning = false;
    store_.save(state_);
    return {};
}

QString Engine::refusal(const Command& command) const {
    if (!isServer(command.loginServer))
        return u"error: \"%1\" is not the address of a control server"_s.arg(command.loginServer);
    if (command.authKey.isEmpty())
        return u"error: an auth key is needed to log in"_s;
    const AuthKey* key = world_.authKey(command.authKey);
    if (key == nullptr)
        return u"error: the control server refused the log-in: unknown auth key"_s;
    if (key->state == AuthKey::State::Expired)
        return u"error: the control server refused the log-in: the auth key has expired"_s;
    if (key->state == AuthKey::State::Used || state_.usedKeys.contains(keyDigest(key->key)))
        return u"error: the control server refused the log-in: the auth key has been used"_s;
    return {};
}

Profile& Engine::profileFor(const AuthKey& key) {
    for (Profile& profile : state_.profiles) {
        if (profile.network == key.network && profile.account == key.account)
            return profile;
    }
    Profile profile;
    int attempt = 0;
    do
        profile.id = profileId(key.network, key.account, attempt++);
    while (state_.profile(profile.id) != nullptr);
    profile.network = key.network;
    profile.account = key.account;
    profile.hostName = world_.network(key.network)->account(key.account)->hostName;
    state_.profiles.append(profile);
    return state_.profiles.last();
}

Reply Engine::login(const Command& command, Moment now) {
    const QString problem = refusal(command);
    if (!problem.isEmpty())
        return failure(problem);
    const AuthKey& key = *world_.authKey(command.authKey);
    if (key.once)
        state_.usedKeys.append(keyDigest(key.key));
    Profile& profile = profileFor(key);
    profile.controlUrl = command.loginServer;
    if (!command.hostName.isEmpty())
        profile.hostName = command.hostName;
    profile.expiresAt =
        key.nodeKeySeconds > 0 ? (now.sinceEpoch + milliseconds(key.nodeKeySeconds)).count() : 0;
    state_.currentId = profile.id;
    start(now);
    return Reply::text("Success.\n");
}

Reply Engine::switchTo(const QString& id, Moment now) {
    const Profile* profile = state_.profile(id);
    if (profile == nullptr)
        return failure(u"error: no profile \"%1\"; see \"tarnwick switch --list\""_s.arg(id));
    const std::string account = profile->account.toStdString();
    if (id == state_.currentId)
        return Reply::text("Already on profile \"" + account + "\".\n");
    state_.currentId = id;
    startedAt_ = now.sinceStart;
    store_.save(state_);
    return Reply::text("Switched to profile \"" + account + "\".\n");
}

Reply Engine::remove(const QString& id) {
    const auto removed =
        state_.profiles.removeIf([&id](const Profile& profile) { return profile.id == id; });
    if (removed == 0)
        return failure(u"Response status: 404 Not Found\nprofile not found"_s);
    if (id == state_.currentId) {
        state_.currentId.clear();
        state_.wantRunning = false;
    }
    store_.save(state_);
    return {};
}

} // namespace tarnwick::simulator
