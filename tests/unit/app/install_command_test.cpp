// SPDX-License-Identifier: MIT
#include "app/command_line_options.h"
#include "support/controller_world.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// Stand-ins for the program that asks for the administrator's password.

CommandLine succeed(const QString&) {
    return {u"/bin/sh"_s, {u"-c"_s, u"exit 0"_s}};
}

CommandLine refuse(const QString&) {
    return {u"/bin/sh"_s, {u"-c"_s, u"echo 'error: Not authorized'; exit 126"_s}};
}

CommandLine waitForPassword(const QString&) {
    return {u"/bin/sleep"_s, {u"30"_s}};
}

class InstallCommandTest : public testing::Test {
protected:
    int run(CommandLine (*authorise)(const QString&)) {
        world_.platform.authorise = authorise;
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = runInstallCommand(world_.options());
        output_ = testing::internal::GetCapturedStdout();
        errors_ = testing::internal::GetCapturedStderr();
        return status;
    }

    test::ControllerWorld world_;
    std::string output_;
    std::string errors_;
};

} // namespace

TEST_F(InstallCommandTest, ARefusalIsPrintedAndIsStatus1) {
    EXPECT_EQ(run(refuse), 1);
    EXPECT_EQ(output_, "");
    EXPECT_NE(errors_.find("Not authorized"), std::string::npos) << errors_;
}

TEST_F(InstallCommandTest, SuccessIsPrintedAndIsStatus0) {
    EXPECT_EQ(run(succeed), 0) << errors_;
    EXPECT_EQ(output_, "The network daemon is installed and started.\n");
    EXPECT_EQ(errors_, "");
}

TEST_F(InstallCommandTest, ASignalEndsAPromptThatNobodyAnswers) {
    QTimer::singleShot(std::chrono::milliseconds(300), [] { std::raise(SIGTERM); });
    EXPECT_EQ(run(waitForPassword), 1);
    EXPECT_EQ(output_, "");
}

} // namespace tarnwick
