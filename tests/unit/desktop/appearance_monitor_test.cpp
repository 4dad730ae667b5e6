// SPDX-License-Identifier: MIT
#include "desktop/appearance_monitor.h"
#include "support/private_bus.h"
#include "support/waiting.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;
using test::runEventLoopFor;
using test::waitUntil;
using Scheme = Appearance::Scheme;

namespace {

struct ThreeNumbers {
    double red = 0;
    double green = 0;
    double blue = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const ThreeNumbers& numbers) {
    argument.beginStructure();
    argument << numbers.red << numbers.green << numbers.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, ThreeNumbers&) {
    return argument;
}

/// A settings portal on a connection of its own, which answers as it is made to.
class Portal : public QDBusVirtualObject {
public:
    Portal(const QString& address, DesktopSettings served)
        : settings(std::move(served)),
          connection_(QDBusConnection::connectToBus(address, u"settings portal"_s)) {
        qDBusRegisterMetaType<DesktopSettings>();
        qDBusRegisterMetaType<ThreeNumbers>();
        connection_.registerVirtualObject(u"/org/freedesktop/portal/desktop"_s, this);
        connection_.registerService(u"org.freedesktop.portal.Desktop"_s);
    }

    ~Portal() override {
        connection_.unregisterService(u"org.freedesktop.portal.Desktop"_s);
        connection_.unregisterObject(u"/org/freedesktop/portal/desktop"_s);
        QDBusConnection::disconnectFromBus(u"settings portal"_s);
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        calls += message;
        if (!isSilent)
            answerAll();
        return true;
    }

    void answerAll() {
        for (const QDBusMessage& call : std::exchange(calls, {}))
            connection_.send(nonsense ? call.createReply(*nonsense)
                                      : call.createReply(QVariant::fromValue(settings)));
    }

    void announce(const QString& nameSpace, const QString& key, const QVariant& value) {
        QDBusMessage signal =
            QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << nameSpace << key << QVariant::fromValue(QDBusVariant(value));
        connection_.send(signal);
    }

    DesktopSettings settings;
    QList<QDBusMessage> calls;
    bool isSilent = false;
    std::optional<QVariant> nonsense;

private:
    QDBusConnection connection_;
};

DesktopSettings withScheme(uint scheme) {
    return {{u"org.freedesktop.appearance"_s, {{u"color-scheme"_s, scheme}}}};
}

class AppearanceMonitorTest : public testing::Test {
protected:
    AppearanceMonitorTest() {
        for (const char* name : {"XDG_CURRENT_DESKTOP", "QT_QPA_PLATFORMTHEME", "KDE_FULL_SESSION"})
            qunsetenv(name);
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().toUtf8());
    }

    void startMonitor() {
        monitor_ = std::make_unique<AppearanceMonitor>();
        QObject::connect(monitor_.get(), &AppearanceMonitor::changed, monitor_.get(),
                         [this] { events_ += u"changed"_s; });
        QObject::connect(monitor_.get(), &AppearanceMonitor::settled, monitor_.get(),
                         [this] { events_ += u"settled"_s; });
    }

    bool waitForEvents(const QStringList& wanted) {
        return waitUntil([&] { return events_ == wanted; });
    }

    bool waitForScheme(Scheme scheme) {
        return waitUntil([&] { return monitor_->appearance().scheme == scheme; });
    }

    test::PrivateBus bus_;
    std::unique_ptr<AppearanceMonitor> monitor_;
    QStringList events_;
};

} // namespace

TEST_F(AppearanceMonitorTest, AnswerIsKnownBeforeItIsSettled) {
    bus_.start();
    const Portal portal(bus_.address(), withScheme(1));
    startMonitor();
    EXPECT_TRUE(events_.isEmpty());
    ASSERT_TRUE(waitForEvents({u"changed"_s, u"settled"_s}));
    EXPECT_EQ(monitor_->appearance().scheme, Scheme::Dark);
}

TEST_F(AppearanceMonitorTest, ClickThatIsEarlyWaitsForTheAnswer) {
    bus_.start();
    const Portal portal(bus_.address(), withScheme(1));
    startMonitor();
    monitor_->whenSettled([this] { events_ += u"click"_s; });
    EXPECT_TRUE(waitForEvents({u"changed"_s, u"settled"_s, u"click"_s}));
}

TEST_F(AppearanceMonitorTest, NoBusAndNoPortalSettleWithNothing) {
    startMonitor();
    ASSERT_TRUE(waitForEvents({u"settled"_s}));
    events_.clear();
    bus_.start();
    startMonitor();
    ASSERT_TRUE(waitForEvents({u"settled"_s}));
    EXPECT_EQ(monitor_->appearance(), Appearance());
}

TEST_F(AppearanceMonitorTest, OneThatHangsIsNotWaitedForButHeardLater) {
    bus_.start();
    Portal portal(bus_.address(), withScheme(2));
    portal.isSilent = true;
    startMonitor();
    ASSERT_TRUE(waitUntil([&] { return !portal.calls.isEmpty(); }));
    EXPECT_TRUE(events_.isEmpty());
    for (const QString& click : {u"first click"_s, u"second click"_s})
        monitor_->whenSettled([this, click] { events_ += click; });
    EXPECT_TRUE(events_.isEmpty());
    QStringList wanted{u"settled"_s, u"first click"_s, u"second click"_s};
    ASSERT_TRUE(waitForEvents(wanted));
    monitor_->whenSettled([this] { events_ += u"at once"_s; });
    portal.answerAll();
    EXPECT_TRUE(waitForEvents(wanted + QStringList{u"at once"_s, u"changed"_s}));
}

TEST_F(AppearanceMonitorTest, AnswerThatIsNoMapOfMapsSaysNothing) {
    bus_.start();
    for (const QVariant& nonsense :
         {QVariant(u"dark"_s), QVariant(1U), QVariant(QVariantMap{{u"color-scheme"_s, 1U}})}) {
        Portal portal(bus_.address(), {});
        portal.nonsense = nonsense;
        events_.clear();
        startMonitor();
        ASSERT_TRUE(waitForEvents({u"settled"_s}));
        EXPECT_EQ(monitor_->appearance(), Appearance());
    }
}

TEST_F(AppearanceMonitorTest, StructuresAndVariantsInVariantsAreRead) {
    bus_.start();
    const QVariant dark = QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(1U))));
    const QVariant accent = QVariant::fromValue(ThreeNumbers{1, 0, 0});
    const Portal portal(bus_.address(),
                        {{u"org.freedesktop.appearance"_s,
                          {{u"color-scheme"_s, dark}, {u"accent-color"_s, accent}}}});
    startMonitor();
    ASSERT_TRUE(waitForEvents({u"changed"_s, u"settled"_s}));
    EXPECT_EQ(monitor_->appearance().scheme, Scheme::Dark);
    EXPECT_EQ(monitor_->appearance().accent, QColor(Qt::red));
}

TEST_F(AppearanceMonitorTest, ChangesAreFollowedAndOtherSettingsAreNot) {
    bus_.start();
    Portal portal(bus_.address(), withScheme(2));
    startMonitor();
    ASSERT_TRUE(waitForScheme(Scheme::Light));
    portal.announce(u"org.example"_s, u"color-scheme"_s, 0U);
    portal.announce(u"org.freedesktop.appearance"_s, u"contrast"_s, 1U);
    ASSERT_TRUE(waitUntil([&] { return monitor_->appearance().hasHighContrast; }));
    EXPECT_EQ(monitor_->appearance().scheme, Scheme::Light);
    portal.announce(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 1U);
    EXPECT_TRUE(waitForScheme(Scheme::Dark));
    portal.announce(u"org.freedesktop.appearance"_s, u"color-scheme"_s, u"light"_s);
    EXPECT_TRUE(waitForScheme(Scheme::NoPreference)) << "of the wrong type";
}

TEST_F(AppearanceMonitorTest, OneThatDiesChangesNothingAndTheNextIsAsked) {
    bus_.start();
    auto portal = std::make_unique<Portal>(bus_.address(), withScheme(1));
    startMonitor();
    ASSERT_TRUE(waitForScheme(Scheme::Dark));
    portal.reset();
    runEventLoopFor(std::chrono::milliseconds(100));
    EXPECT_EQ(monitor_->appearance().scheme, Scheme::Dark);
    portal = std::make_unique<Portal>(bus_.address(), withScheme(2));
    EXPECT_TRUE(waitForScheme(Scheme::Light));
}

TEST_F(AppearanceMonitorTest, OneOnABusThatComesLateIsAsked) {
    startMonitor();
    ASSERT_TRUE(waitForEvents({u"settled"_s}));
    bus_.start();
    const Portal portal(bus_.address(), withScheme(1));
    EXPECT_TRUE(waitForScheme(Scheme::Dark));
}

TEST_F(AppearanceMonitorTest, OnPlasmaNobodyIsAsked) {
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    bus_.start();
    const Portal portal(bus_.address(), withScheme(1));
    startMonitor();
    ASSERT_TRUE(waitForEvents({u"settled"_s}));
    runEventLoopFor(std::chrono::milliseconds(100));
    EXPECT_EQ(monitor_->appearance(), Appearance());
    qunsetenv("XDG_CURRENT_DESKTOP");
}

} // namespace tarnwick
