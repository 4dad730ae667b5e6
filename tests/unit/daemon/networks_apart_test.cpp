// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QFile>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::ControllerWorld;
using test::waitUntil;

// A tool whose daemon is in the network that the file of that name says. It stops where the test
// holds it: before and after each answer.
constexpr auto daemonOfSeveralNetworks = R"sh(
stop() { : > "$here/at-$1"; while [ -e "$here/hold-$1" ]; do sleep 0.005; done; }
answer_status() {
    n=$(cat "$here/network")
    printf '{"BackendState":"Running","Self":{"Online":true,"HostName":"host-%s",' "$n"
    printf '"TailscaleIPs":["address-%s"]}}' "$n"
}
answer_list() {
    n=$(cat "$here/network")
    [ ! -e "$here/unmarked" ] || n=none
    printf 'ID Network Account\n'
    for p in p1 p2 p3; do
        [ $p = $n ] && mark='*' || mark=
        printf '%s net mira%s\n' $p "$mark"
    done
}
case "$1 $2" in
'switch --list') stop list; answer_list; stop list-answered ;;
'switch '*) printf '%s' "$2" > "$here/network" ;;
login*) printf p3 > "$here/network" ;;
status*) stop status; answer_status; stop status-answered ;;
esac
)sh";

/// Where a refresh stands when something else happens.
enum class Moment { BeforeItBegins, BeforeTheStatus, BeforeTheList, BeforePublishing, Afterwards };

/// What happens then.
enum class Happening { SwitchHere, SwitchOutside, LogInHere };

struct Order {
    Moment moment;
    Happening happening;
    bool isForced;  ///< The refresh reads the list in any case.
    bool listMarks; ///< The list says which profile is the current one.

    std::string name() const {
        static constexpr const char* moments[] = {
            "BeforeARefresh", "BeforeTheStatus", "BeforeTheList", "BeforePublishing", "Afterwards"};
        static constexpr const char* happenings[] = {"SwitchHere", "SwitchOutside", "LogInHere"};
        return std::string(happenings[static_cast<int>(happening)]) +
               moments[static_cast<int>(moment)] + (isForced ? "Forced" : "Unforced") +
               (listMarks ? "" : "ListMarksNone");
    }

    friend std::ostream& operator<<(std::ostream& out, const Order& order) {
        return out << order.name();
    }
};

QList<Order> allOrders() {
    QList<Order> orders;
    for (int moment = 0; moment <= static_cast<int>(Moment::Afterwards); ++moment) {
        for (int happening = 0; happening <= static_cast<int>(Happening::LogInHere); ++happening) {
            for (const bool isForced : {false, true}) {
                for (const bool listMarks : {true, false}) {
                    orders.append({static_cast<Moment>(moment), static_cast<Happening>(happening),
                                   isForced, listMarks});
                }
            }
        }
    }
    return orders;
}

class NetworksApart : public testing::TestWithParam<Order> {
protected:
    NetworksApart() {
        world_.tool.setScript(daemonOfSeveralNetworks);
        enterNetwork(u"p1"_s);
        manager_ = world_.createRefreshed();
        QObject::connect(&manager_->published(), &PublishedState::changed, &context_,
                         [this] { expectNoMixture(); });
    }

    ~NetworksApart() override {
        for (const char* point : {"status", "status-answered", "list", "list-answered"})
            release(point);
    }

    void enterNetwork(const QString& id) const { write("network", id.toLatin1()); }

    void hold(const char* point) const {
        QFile::remove(file("at-", point));
        write(("hold-" + QByteArray(point)).constData(), {});
    }

    void release(const char* point) const { QFile::remove(file("hold-", point)); }

    bool waitFor(const char* point) const {
        return waitUntil([&] { return QFile::exists(file("at-", point)); });
    }

    void markNone() const { write("unmarked", {}); }

    void happen(Happening happening) {
        switch (happening) {
        case Happening::SwitchHere:
            return manager_->switchProfile(u"p2"_s);
        case Happening::SwitchOutside:
            return enterNetwork(u"p2"_s);
        case Happening::LogInHere:
            return manager_->connectWithAuthKey(u"key"_s, {});
        }
    }

    static NetworkProfileDetails detailsIn(const QString& id) {
        return {u"address-"_s + id, u"host-"_s + id};
    }

    void expectNoMixture() const {
        const ProfileDetailsMap stored = world_.storedDetails();
        for (auto entry = stored.begin(); entry != stored.end(); ++entry)
            EXPECT_EQ(entry.value(), detailsIn(entry.key())) << qPrintable(entry.key());
    }

    /// Refreshes now and then, as the poll does, until the details of `id` are remembered.
    bool isRememberedInTheEnd(const QString& id) const {
        return waitUntil([&] {
            manager_->refreshStatus();
            return world_.storedDetails().value(id) == detailsIn(id);
        });
    }

    ControllerWorld world_;
    std::shared_ptr<DaemonManager> manager_;
    QObject context_;

private:
    QString file(const char* prefix, const char* point) const {
        return world_.tool.directory() + u'/' + QLatin1StringView(prefix) +
               QLatin1StringView(point);
    }

    void write(const char* name, const QByteArray& content) const {
        QFile out(file("", name));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
    }
};

TEST_P(NetworksApart, WhateverTheOrder) {
    const auto [moment, happening, isForced, listMarks] = GetParam();
    if (!listMarks)
        markNone();
    const char* point = moment == Moment::BeforeTheStatus                ? "status"
                        : moment == Moment::BeforePublishing && isForced ? "list-answered"
                                                                         : "status-answered";
    const bool isDuring = moment != Moment::BeforeItBegins && moment != Moment::Afterwards;
    if (isDuring)
        hold(point);

    if (moment == Moment::BeforeItBegins)
        happen(happening);
    bool isDone = false;
    manager_->refreshStatus(isForced, [&isDone] { isDone = true; });
    if (isDuring) {
        ASSERT_TRUE(waitFor(point));
        happen(happening);
        release(point);
    }
    ASSERT_TRUE(waitUntil([&] { return isDone; }));
    if (moment == Moment::Afterwards)
        happen(happening);

    if (listMarks)
        EXPECT_TRUE(isRememberedInTheEnd(happening == Happening::LogInHere ? u"p3"_s : u"p2"_s));
    else if (happening == Happening::SwitchHere)
        EXPECT_TRUE(isRememberedInTheEnd(u"p2"_s));
    else
        for (int i = 0; i < 4; ++i)
            EXPECT_TRUE(test::refresh(*manager_, true));
    expectNoMixture();
    EXPECT_EQ(world_.storedDetails().value(u"p1"_s), detailsIn(u"p1"_s)) << "nor anything lost";
}

INSTANTIATE_TEST_SUITE_P(All, NetworksApart, testing::ValuesIn(allOrders()),
                         [](const auto& order) { return order.param.name(); });

using TwoSwitches = NetworksApart;

TEST_F(TwoSwitches, OneHereAndThenOneOutsideBetweenTheAnswers) {
    manager_->switchProfile(u"p2"_s);
    hold("status-answered");
    ASSERT_TRUE(waitFor("status-answered"));
    enterNetwork(u"p3"_s);
    release("status-answered");
    EXPECT_TRUE(isRememberedInTheEnd(u"p3"_s));
}

TEST_F(TwoSwitches, SecondOneAskedForWhileTheFirstsRefreshRuns) {
    markNone();
    manager_->switchProfile(u"p2"_s);
    hold("list-answered");
    ASSERT_TRUE(waitFor("list-answered"));
    manager_->switchProfile(u"p3"_s);
    release("list-answered");
    EXPECT_TRUE(isRememberedInTheEnd(u"p3"_s));
    EXPECT_EQ(world_.storedDetails().value(u"p2"_s), detailsIn(u"p2"_s));
}

} // namespace

} // namespace tarnwick
