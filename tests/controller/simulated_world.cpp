// SPDX-License-Identifier: MIT
#include "simulated_world.h"

#include "platform/platform.h"
#include "support/waiting.h"

#include <QFileInfo>
#include <QJsonArray>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

SimulatedWorld::SimulatedWorld(double startingSeconds) : daemon_(startingSeconds) {
    world_.platform.systemSocket = daemon_.socketPath();
}

std::shared_ptr<DaemonManager> SimulatedWorld::create() const {
    auto options = world_.options();
    options.bundleDir = QFileInfo(SimulatedDaemon::toolPath()).path();
    options.machine = machineHardwareName();
    auto manager = DaemonManager::create(std::move(options));
    EXPECT_TRUE(waitForRefresh(*manager));
    return manager;
}

QString SimulatedWorld::profileIn(const QString& network) const {
    const QJsonArray profiles = daemon_.account().value(u"profiles"_s).toArray();
    for (const QJsonValue& profile : profiles)
        if (profile[u"network"_s].toString() == network)
            return profile[u"id"_s].toString();
    return {};
}

void SimulatedWorld::logIn(DaemonManager& manager, const QString& key, const QString& name) const {
    bool isDone = false;
    manager.connectWithAuthKey(key, name, [&isDone] { isDone = true; });
    EXPECT_TRUE(waitUntil([&isDone] { return isDone; }));
}

bool SimulatedWorld::settle(DaemonManager& manager) const {
    // A removal is the only command that nothing follows when it fails, so it serves as the mark:
    // once its message is there, all commands before it have run.
    const auto mark = u"no-such-profile"_s;
    manager.removeProfile(mark);
    const bool hasRun = waitUntil([&] {
        const auto log = daemon_.log();
        for (const QJsonObject& entry : log)
            if (entry.value(u"arguments"_s).toArray().last().toString().endsWith(mark))
                return true;
        return false;
    });
    return hasRun && refresh(manager) && refresh(manager);
}

} // namespace tarnwick::test
