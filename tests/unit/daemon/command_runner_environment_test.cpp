// SPDX-License-Identifier: MIT
#include "daemon/command_runner.h"
#include "support/printing.h"
#include "support/stub_tool.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// What a runner's children find in their environment.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class CommandRunnerEnvironment : public testing::Test {
protected:
    ~CommandRunnerEnvironment() override {
        for (const char* name :
             {"BROWSER", "TARNWICK_TEST_ENTRY", "XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
            qunsetenv(name);
    }

    CommandRunner runner() const {
        Timing timing;
        timing.commandTimeout = 40s;
        timing.pollStep = 2ms;
        return {tool_.path(), {home_.path(), home_.filePath(u"system.sock"_s)}, timing, {}};
    }

    /// The environment of a program that is not the tool.
    QStringList environmentOfAnotherProgram(const CommandRunner& runner) const {
        const QString list = home_.filePath(u"list"_s);
        runner.runSilently({u"/bin/sh"_s, {u"-c"_s, u"env > "_s + list}}, 40s);
        QFile file(list);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll()).split(u'\n');
    }

    QTemporaryDir home_;
    test::StubTool tool_;
};

TEST_F(CommandRunnerEnvironment, BrowserIsEchoForTheToolAlone) {
    qputenv("BROWSER", "firefox");
    const CommandRunner runner = this->runner();
    runner.runCLI({});
    EXPECT_EQ(tool_.environment().filter(u"BROWSER="_s), QStringList{u"BROWSER=echo"_s});
    EXPECT_EQ(environmentOfAnotherProgram(runner).filter(u"BROWSER="_s),
              QStringList{u"BROWSER=firefox"_s});
}

// It may change on the main thread while the work queue starts a child.
TEST_F(CommandRunnerEnvironment, IsReadOnceWhenTheRunnerIsMade) {
    qputenv("TARNWICK_TEST_ENTRY", "then");
    const CommandRunner runner = this->runner();
    qputenv("TARNWICK_TEST_ENTRY", "now");
    runner.runCLI({});
    EXPECT_TRUE(tool_.environment().contains(u"TARNWICK_TEST_ENTRY=then"_s));
    EXPECT_TRUE(environmentOfAnotherProgram(runner).contains(u"TARNWICK_TEST_ENTRY=then"_s));
}

TEST_F(CommandRunnerEnvironment, HasNoStartUpToken) {
    qputenv("XDG_ACTIVATION_TOKEN", "token-of-one-launch");
    qputenv("DESKTOP_STARTUP_ID", "token-of-one-launch");
    const CommandRunner runner = this->runner();
    runner.runCLI({});
    EXPECT_TRUE(tool_.environment().filter(u"token-of-one-launch"_s).isEmpty());
    EXPECT_TRUE(environmentOfAnotherProgram(runner).filter(u"token-of-one-launch"_s).isEmpty());
}

} // namespace

} // namespace tarnwick
