// SPDX-License-Identifier: MIT
#include "simulated_world.h"
#include "support/log_capture.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QDirIterator>
#include <QFileInfo>

// An auth key stands in the tool's argument list, in what the tool prints back, and nowhere else,
// with every category of the log switched on.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::SimulatedWorld;

class AuthKeySecrecy : public SimulatedWorld {
protected:
    AuthKeySecrecy() {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
    }

    /// Every file that the controller may have written, and what this process has printed.
    QByteArray everythingWritten() const {
        const QByteArray log = log_.text();
        EXPECT_TRUE(log.contains("--authkey")) << "the log-in is in the log";
        QByteArray everything =
            log + QByteArray::fromStdString(testing::internal::GetCapturedStdout() +
                                            testing::internal::GetCapturedStderr());
        const QString root = QFileInfo(world_.homeDir()).path();
        QDirIterator files(root, QDir::Files | QDir::Hidden | QDir::System,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            everything += files.filePath().toUtf8();
            if (file.open(QIODevice::ReadOnly))
                everything += file.readAll();
        }
        return everything;
    }

    const test::LogCapture log_{u"*=true"_s};
    const QString secret_ = u"twkey-a-secret-of-mine"_s;
};

TEST_F(AuthKeySecrecy, KeyOfAGoodLoginIsWrittenNowhere) {
    const auto manager = create();
    logIn(*manager, u"twkey-harbor-good"_s, u"name"_s);
    EXPECT_TRUE(manager->state().isConnected);
    const QByteArray written = everythingWritten();
    EXPECT_TRUE(written.contains("100.72.14.3")) << "the settings are among it";
    EXPECT_FALSE(written.contains("twkey"));
}

TEST_F(AuthKeySecrecy, KeyOfARefusedLoginIsInNoMessageOfOurs) {
    const auto manager = create();
    for (const auto& fault : {u"none"_s, u"error@login"_s, u"garbage@login"_s, u"crash@login"_s}) {
        daemon_.setFaults({u"none"_s, fault});
        logIn(*manager, secret_);
        EXPECT_FALSE(manager->state().errorMessage.value_or(u""_s).contains(secret_));
    }
    EXPECT_FALSE(everythingWritten().contains(secret_.toUtf8()));
}

TEST_F(AuthKeySecrecy, KeyForAToolThatCannotRunOrHangsIsInNoMessage) {
    auto manager = world_.createRefreshed();
    QFile::remove(world_.tool.path());
    logIn(*manager, secret_);
    EXPECT_EQ(manager->state().errorMessage, u"error: No such file or directory"_s);
    manager.reset();

    world_.timing.loginTimeout = std::chrono::milliseconds(100);
    manager = create();
    daemon_.setFaults({u"hang@login"_s});
    logIn(*manager, secret_);
    EXPECT_FALSE(manager->state().errorMessage.value_or(u""_s).contains(secret_));
    EXPECT_FALSE(everythingWritten().contains(secret_.toUtf8()));
}

} // namespace

} // namespace tarnwick
