// SPDX-License-Identifier: MIT
#include "simulated_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QJsonArray>
#include <QRandomGenerator>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::SimulatedWorld;
using test::waitUntil;

class CommandOrder : public SimulatedWorld {
protected:
    /// Issues one command at random and notes the runs of the tool that it stands for.
    void issue(DaemonManager& manager, QRandomGenerator& random, const QStringList& profiles) {
        switch (random.bounded(6)) {
        case 0:
            manager.connect();
            expected_ << u"up"_s;
            break;
        case 1:
            manager.disconnect();
            expected_ << u"down"_s;
            break;
        case 2: {
            const QString id = profiles[random.bounded(profiles.size())];
            manager.switchProfile(id);
            expected_ << u"switch "_s + id << u"up"_s;
            break;
        }
        case 3:
            manager.removeProfile(u"gone"_s);
            expected_ << u"debug localapi DELETE /localapi/v0/profiles/gone"_s;
            break;
        default:
            manager.refreshStatus(random.bounded(2) == 0);
            break;
        }
    }

    QStringList expected_;
};

QString textOf(const QJsonObject& entry) {
    QStringList words;
    for (const QJsonValue& argument : entry.value(u"arguments"_s).toArray())
        words << argument.toString();
    return words.join(u' ');
}

bool isAsInAccount(const DaemonManager& manager, const QJsonObject& account) {
    bool isSame = manager.state().backendState == account.value(u"backendState"_s).toString() &&
                  manager.state().profiles.size() == account.value(u"profiles"_s).toArray().size();
    for (const NetworkProfile& profile : manager.state().profiles)
        isSame =
            isSame && profile.isCurrent == (profile.id == account.value(u"current"_s).toString());
    return isSame;
}

TEST_F(CommandOrder, TwoHundredMixedCommandsRunOneByOneInOrderAndEndInTheDaemonsState) {
    const quint32 seed = QRandomGenerator::global()->generate();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    QRandomGenerator random(seed);
    daemon_.logIn(u"twkey-harbor-good"_s);
    daemon_.logIn(u"twkey-kite-good"_s);
    const auto manager = create();
    const QStringList profiles = {profileIn(u"harbor-labs"_s), profileIn(u"kite-studio"_s)};
    const auto before = daemon_.log().size();
    for (int i = 0; i < 199; ++i)
        issue(*manager, random, profiles);
    manager->connect();
    expected_ << u"up"_s;

    // The forced refresh after the last command ends in a list; nothing is asked after it.
    QStringList commands;
    ASSERT_TRUE(waitUntil(
        [&] {
            commands.clear();
            const auto log = daemon_.log().mid(before);
            for (const QJsonObject& entry : log)
                if (!textOf(entry).endsWith(u"--list"_s) && !textOf(entry).startsWith(u"status"_s))
                    commands << textOf(entry);
            return commands.size() >= expected_.size() && textOf(log.last()).endsWith(u"--list"_s);
        },
        std::chrono::seconds(90)));
    EXPECT_EQ(commands, expected_);
    for (const QJsonObject& entry : daemon_.log())
        EXPECT_EQ(entry.value(u"open"_s).toInt(), 1) << textOf(entry).toStdString();

    // Published once the last refresh's tool has ended, which the daemon knows a moment earlier.
    const QJsonObject account = daemon_.account();
    EXPECT_TRUE(waitUntil([&] { return isAsInAccount(*manager, account); }));
    EXPECT_TRUE(manager->state().isConnected);
}

} // namespace

} // namespace tarnwick
