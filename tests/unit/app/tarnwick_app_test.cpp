// SPDX-License-Identifier: MIT
#include "app/tarnwick_app.h"
#include "support/controller_world.h"
#include "support/waiting.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <future>

namespace tarnwick {

using namespace Qt::StringLiterals;
using test::waitUntil;

namespace {

class TarnwickAppTest : public testing::Test {
protected:
    /// What a second launch asks of this one.
    void requestPanel(const QByteArray& activationToken = {}) {
        auto asked = std::async(std::launch::async, [this, activationToken] {
            return SingleInstanceChannel::askToShow(socket_, activationToken,
                                                    std::chrono::seconds(10));
        });
        waitUntil(
            [&] { return asked.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
        EXPECT_TRUE(asked.get());
    }

    QTemporaryDir dir_;
    QString socket_ = dir_.filePath(u"socket"_s);
    test::ControllerWorld world_;
};

} // namespace

TEST_F(TarnwickAppTest, ExactlyOneControllerExistsHoweverOftenThePanelIsOpened) {
    const TarnwickApp app(socket_, world_.options());
    const DaemonManager* controller = app.daemon().get();
    ASSERT_TRUE(waitUntil([&] { return !world_.tool.commands().isEmpty(); }));
    for (int i = 0; i < 3; ++i)
        requestPanel();
    EXPECT_EQ(app.daemon().get(), controller);
    // Each controller asks for the status when it is made.
    test::runEventLoopFor(std::chrono::milliseconds(300));
    EXPECT_EQ(world_.tool.commands().count(QStringList{u"status"_s, u"--json"_s}), 1);
}

TEST_F(TarnwickAppTest, EveryCommandToTheDaemonReachesTheTool) {
    using Kind = PanelCommand::Kind;
    TarnwickApp app(socket_, world_.options());
    const std::pair<PanelCommand, QStringList> expected[] = {
        {{Kind::SwitchProfile, u"7"_s}, {u"switch"_s, u"7"_s}},
        {{Kind::RemoveProfile, u"8"_s},
         {u"debug"_s, u"localapi"_s, u"DELETE"_s, u"/localapi/v0/profiles/8"_s}},
        {{Kind::Disconnect}, {u"down"_s}},
    };
    for (const auto& [command, arguments] : expected) {
        app.perform(command);
        EXPECT_TRUE(waitUntil([this, &wanted = arguments] {
            return world_.tool.commands().contains(wanted);
        })) << qPrintable(arguments.join(u' '));
    }
}

TEST_F(TarnwickAppTest, RefreshAsksForTheStatusOnceMore) {
    const QStringList status{u"status"_s, u"--json"_s};
    TarnwickApp app(socket_, world_.options());
    ASSERT_TRUE(test::waitForRefresh(*app.daemon()));
    EXPECT_EQ(world_.tool.commands().count(status), 1);
    app.perform({PanelCommand::Kind::Refresh});
    EXPECT_TRUE(waitUntil([&] { return world_.tool.commands().count(status) == 2; }));
}

TEST_F(TarnwickAppTest, UseAuthKeyOpensItsWindow) {
    TarnwickApp app(socket_, world_.options());
    app.perform({PanelCommand::Kind::ShowAuthKeyWindow});
    const QWidgetList windows = QApplication::topLevelWidgets();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(windows.first()->windowTitle(), u"Connect to Network"_s);
    EXPECT_FALSE(windows.first()->windowIcon().isNull());
}

TEST_F(TarnwickAppTest, QuitEndsTheEventLoop) {
    TarnwickApp app(socket_, world_.options());
    QTimer::singleShot(0, [&app] { app.perform({PanelCommand::Kind::Quit}); });
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(TarnwickAppTest, TheControllerGoesWithTheProgram) {
    std::weak_ptr<DaemonManager> controller;
    {
        const TarnwickApp app(socket_, world_.options());
        controller = app.daemon();
        requestPanel();
    }
    EXPECT_TRUE(controller.expired());
}

// It is good for one window of ours, and what the client starts would inherit it.
TEST_F(TarnwickAppTest, ActivationTokenDoesNotStayInTheEnvironment) {
    const TarnwickApp app(socket_, world_.options());
    requestPanel("token-of-one-launch");
    ASSERT_TRUE(waitUntil([] { return !QApplication::topLevelWidgets().isEmpty(); }));
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(TarnwickAppTest, NoWindowShowsBeforeOneIsAskedFor) {
    const TarnwickApp app(socket_, world_.options());
    test::runEventLoopFor(std::chrono::milliseconds(200));
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    requestPanel();
    EXPECT_TRUE(waitUntil([] { return !QApplication::topLevelWidgets().isEmpty(); }));
}

} // namespace tarnwick
