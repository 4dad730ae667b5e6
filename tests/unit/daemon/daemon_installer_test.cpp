// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/publishing.h"
#include "support/shell.h"
#include "support/waiting.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <atomic>
#include <semaphore>
#include <thread>

// The outcome of an installation, with stand-ins for the program that asks for the password.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::ControllerWorld;
using test::waitUntil;

// The platform names a plain function, which can know of no test: the stand-in gets the line as
// its argument and finds its script in the environment, as pkexec finds its agent.
CommandLine standIn(const QString& shellLine) {
    return {u"/bin/sh"_s,
            {u"-c"_s, qEnvironmentVariable("TARNWICK_TEST_STAND_IN"), u"-"_s, shellLine}};
}

CommandLine missingStandIn(const QString& shellLine) {
    return {u"/nonexistent/pkexec"_s, {shellLine}};
}

constexpr auto runTheLine = "exec /bin/sh -c \"$1\"";

class DaemonInstallation : public testing::Test {
protected:
    DaemonInstallation() {
        world_.platform.authorise = standIn;
        world_.platform.installedJobFile = inHome(u"job.service"_s);
        world_.platform.loadJobStep = u"true"_s;
        world_.timing.refreshAfterInstall = 1h;
    }

    ~DaemonInstallation() override { qunsetenv("TARNWICK_TEST_STAND_IN"); }

    QString inHome(const QString& name) const { return world_.homeDir() + u'/' + name; }

    static void setStandIn(const QByteArray& script) { qputenv("TARNWICK_TEST_STAND_IN", script); }

    /// Installs, and returns whether the controller calls that a success.
    bool install(DaemonManager& manager) {
        std::optional<bool> outcome;
        manager.installAndStartDaemon([&](bool succeeded) { outcome = succeeded; });
        EXPECT_TRUE(waitUntil([&] { return outcome.has_value(); }));
        return outcome.value_or(false);
    }

    static QByteArray contentOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    ControllerWorld world_;
};

TEST_F(DaemonInstallation, IsThereWhenBothInstalledFilesAre) {
    const auto make = [&](const QString& name) {
        QDir().mkpath(world_.platform.installDir);
        QFile file(world_.platform.installDir + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    };
    EXPECT_FALSE(world_.create()->state().daemonInstalled);
    make(u"/tarnwick-daemon"_s);
    EXPECT_FALSE(world_.create()->state().daemonInstalled);
    make(u"/tarnwick"_s);
    EXPECT_TRUE(world_.create()->state().daemonInstalled);
    QFile::remove(world_.platform.installDir + u"/tarnwick-daemon"_s);
    EXPECT_FALSE(world_.create()->state().daemonInstalled);
}

TEST_F(DaemonInstallation, WithoutABundledJobFileOneIsGeneratedInTheStateDirectory) {
    setStandIn("printf '%s' \"$1\"; exit 1");
    const auto manager = world_.createRefreshed();
    EXPECT_FALSE(install(*manager));
    const QString generated = world_.homeDir() + u"/.tarnwick/tarnwick-daemon.service"_s;
    EXPECT_TRUE(
        manager->state().errorMessage.value_or(u""_s).contains(u"cp '"_s + generated + u"' '"_s));
    EXPECT_EQ(contentOf(generated), world_.platform.jobFileText.toUtf8());
    EXPECT_EQ(QDir(world_.homeDir() + u"/.tarnwick"_s).entryList(QDir::Files).size(), 1)
        << "it is written atomically and leaves nothing behind";
}

TEST_F(DaemonInstallation, MacOSJobFileIsGeneratedLikewise) {
    const Platform mac = macOSPlatform();
    world_.platform.jobFileName = mac.jobFileName;
    world_.platform.jobFileText = mac.jobFileText;
    setStandIn("exit 1");
    install(*world_.createRefreshed());
    EXPECT_EQ(contentOf(world_.homeDir() + u"/.tarnwick/com.tarnwick.daemon.plist"_s),
              mac.jobFileText.toUtf8());
}

TEST_F(DaemonInstallation, BundledJobFileIsTakenByItsPathWithDots) {
    world_.platform.bundledJobDirectory =
        u"/../"_s + QDir(world_.bundleDir()).dirName() + u"/share/"_s;
    QDir().mkpath(world_.bundleDir() + u"/share"_s);
    const QString bundled =
        world_.bundleDir() + world_.platform.bundledJobDirectory + world_.platform.jobFileName;
    QFile file(bundled);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    setStandIn("printf '%s' \"$1\"; exit 1");
    const auto manager = world_.createRefreshed();
    install(*manager);
    EXPECT_TRUE(
        manager->state().errorMessage.value_or(u""_s).contains(u"cp '"_s + bundled + u"' '"_s));
    EXPECT_FALSE(QFile::exists(inHome(u".tarnwick/tarnwick-daemon.service"_s)));
}

TEST_F(DaemonInstallation, DoubleQuoteInAPathReachesTheShellAndASingleOneIsReportedWithoutIt) {
    const auto moveBundleTo = [&](const QString& name) {
        const QString bundle = inHome(name);
        QDir().mkpath(bundle);
        for (const char* file : {"/tarnwick-linux-amd64", "/tarnwick-daemon-linux-amd64"})
            QFile::copy(world_.bundleDir() + QLatin1StringView(file),
                        bundle + QLatin1StringView(file));
        auto options = world_.options();
        options.bundleDir = bundle;
        return DaemonManager::create(std::move(options));
    };
    setStandIn(runTheLine);
    EXPECT_TRUE(install(*moveBundleTo(u"a \"b\" c"_s)));
    EXPECT_EQ(contentOf(world_.platform.installDir + u"/tarnwick-daemon"_s), "a daemon");
    QDir(world_.platform.installDir).removeRecursively();

    setStandIn("touch \"" + inHome(u"shell-ran"_s).toUtf8() + "\"");
    const auto manager = moveBundleTo(u"it's"_s);
    EXPECT_FALSE(install(*manager));
    EXPECT_FALSE(QFile::exists(inHome(u"shell-ran"_s))) << "as administrator";
    EXPECT_TRUE(manager->state().errorMessage.value_or(u""_s).contains(inHome(u"it's/"_s)));
    EXPECT_NE(manager->state().errorMessage, u"Installation cancelled"_s);
    EXPECT_FALSE(manager->state().daemonInstalled);
}

TEST_F(DaemonInstallation, InstalledCopiesAreTheSameFileAndTheFirstCopyFails) {
    const QString directory = world_.platform.installDir;
    QDir().mkpath(directory);
    QFile::copy(world_.tool.path(), directory + u"/tarnwick"_s);
    QFile::copy(world_.tool.path(), directory + u"/tarnwick-daemon"_s);
    setStandIn(runTheLine);
    const auto manager = world_.create();
    ASSERT_TRUE(manager->state().daemonInstalled);
    EXPECT_FALSE(install(*manager));
    const QString daemon = directory + u"/tarnwick-daemon"_s;
    EXPECT_TRUE(manager->state().errorMessage.value_or(u""_s).contains(u"are the same file"_s));
    EXPECT_TRUE(manager->state().errorMessage.value_or(u""_s).contains(daemon));
    EXPECT_TRUE(manager->state().daemonInstalled) << "left unchanged";
    EXPECT_FALSE(QFile::exists(world_.platform.installedJobFile)) << "the chain has stopped";
}

TEST_F(DaemonInstallation, CancelledPromptWithoutOutputGivesExactlyInstallationCancelled) {
    const auto manager = world_.createRefreshed();
    for (const char* script :
         {"exit 126", "exit 127", "exit 1", "kill -KILL $$", "printf '\\377'; exit 126"}) {
        test::publishError(*manager, std::nullopt);
        setStandIn(script);
        EXPECT_FALSE(install(*manager));
        EXPECT_EQ(manager->state().errorMessage, u"Installation cancelled"_s) << script;
        EXPECT_FALSE(manager->state().daemonInstalled);
    }
}

TEST_F(DaemonInstallation, ForcedRefreshFollowsSuccessAfterAPauseAndNotAtOnce) {
    world_.timing.refreshAfterInstall = 300ms;
    setStandIn("echo done");
    const auto manager = world_.createRefreshed();
    test::publishError(*manager, u"earlier"_s);
    const auto before = world_.tool.commands().size();
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(install(*manager));
    EXPECT_TRUE(manager->state().daemonInstalled);
    EXPECT_EQ(manager->state().errorMessage, std::nullopt);
    EXPECT_EQ(world_.tool.commands().size(), before);
    ASSERT_TRUE(waitUntil([&] { return world_.tool.commands().size() == before + 2; }));
    EXPECT_GE(time.elapsed(), 300);
    EXPECT_EQ(world_.tool.commands().last(), (QStringList{u"switch"_s, u"--list"_s})) << "forced";
}

// The remaining two cases, about the start of a daemon that does not answer, are in
// ensure_daemon_running_test.cpp.

TEST_F(DaemonInstallation, OutputOfARefusalIsShownAsItStands) {
    const auto manager = world_.createRefreshed();
    for (const char* status : {"126", "127"}) {
        setStandIn(QByteArray("echo ' Not authorized'; echo agent >&2; exit ") + status);
        EXPECT_FALSE(install(*manager));
        EXPECT_EQ(manager->state().errorMessage, u" Not authorized\nagent\n"_s);
    }
}

TEST_F(DaemonInstallation, ProgramThatIsMissingIsAFailureToInstall) {
    if (test::runsUnderValgrind())
        GTEST_SKIP() << "valgrind hides why a program does not start";
    world_.platform.authorise = missingStandIn;
    const auto manager = world_.createRefreshed();
    EXPECT_FALSE(install(*manager));
    EXPECT_EQ(manager->state().errorMessage, u"Failed to install: No such file or directory"_s);
}

TEST_F(DaemonInstallation, SuccessPutsTheFilesInPlaceAndKeepsTheRunningTool) {
    setStandIn(runTheLine);
    const auto manager = world_.createRefreshed();
    ASSERT_TRUE(install(*manager));
    const QString directory = world_.platform.installDir;
    EXPECT_EQ(contentOf(directory + u"/tarnwick-daemon"_s), "a daemon");
    EXPECT_EQ(contentOf(directory + u"/tarnwick"_s), contentOf(world_.tool.path()));
    EXPECT_TRUE(QFileInfo(directory + u"/tarnwick-daemon"_s).isExecutable());
    EXPECT_EQ(contentOf(world_.platform.installedJobFile), world_.platform.jobFileText.toUtf8());
    const auto before = world_.tool.calls().size();
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_GT(world_.tool.calls().size(), before);
}

TEST_F(DaemonInstallation, UnwritableStateDirectoryMakesTheCopyOfTheJobFileFail) {
    QFile inTheWay(inHome(u".tarnwick"_s)); // a file where the directory should be
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    setStandIn(runTheLine);
    const auto manager = world_.createRefreshed();
    EXPECT_FALSE(install(*manager));
    EXPECT_TRUE(manager->state().errorMessage.value_or(u""_s).contains(
        u".tarnwick/tarnwick-daemon.service"_s));
}

// Where a step of the installation is stuck, as with a file on a dead network mount.
std::binary_semaphore stuck(0);
std::atomic<bool> isStuck = false;

CommandLine stuckStandIn(const QString&) {
    isStuck = true;
    stuck.acquire();
    isStuck = false;
    return {u"/bin/true"_s, {}};
}

TEST_F(DaemonInstallation, ThatIsStuckIsLeftBehind) {
    world_.platform.authorise = stuckStandIn;
    auto manager = world_.createRefreshed();
    manager->installAndStartDaemon();
    ASSERT_TRUE(waitUntil([] { return isStuck.load(); }));
    std::binary_semaphore hasGone(0);
    std::thread rescuer([&hasGone] { // were it waited for, the test would not end
        if (!hasGone.try_acquire_for(20s))
            stuck.release();
    });
    manager.reset();
    EXPECT_TRUE(isStuck);
    hasGone.release();
    rescuer.join();
    stuck.release();
    EXPECT_TRUE(waitUntil([] { return !isStuck.load(); }));
}

class OpenPrompt : public DaemonInstallation {
protected:
    OpenPrompt() {
        setStandIn("touch \"" + inHome(u"prompt-"_s).toUtf8() + "$$\"; while [ -d '" +
                   world_.homeDir().toUtf8() + "' ]; do sleep 0.05; done");
    }

    qsizetype promptCount() const {
        return QDir(world_.homeDir()).entryList({u"prompt-*"_s}, QDir::Files).size();
    }
};

TEST_F(OpenPrompt, BlocksNeitherPollingNorCommands) {
    world_.timing.statusPollInterval = 20ms;
    const auto manager = world_.createRefreshed();
    bool isAnswered = false;
    manager->installAndStartDaemon([&](bool) { isAnswered = true; });
    ASSERT_TRUE(waitUntil([&] { return promptCount() == 1; }));
    const auto before = world_.tool.commands().size();
    manager->connect();
    ASSERT_TRUE(waitUntil([&] {
        const auto since = world_.tool.commands().mid(before);
        return since.size() >= 5 && since.contains(QStringList{u"up"_s});
    }));
    EXPECT_FALSE(isAnswered);
}

TEST_F(OpenPrompt, IsNotWaitedForOnTheWayOut) {
    auto manager = world_.createRefreshed();
    bool isAnswered = false;
    manager->installAndStartDaemon([&](bool) { isAnswered = true; });
    ASSERT_TRUE(waitUntil([&] { return promptCount() == 1; }));
    manager.reset(); // the test would run into its time limit here
    test::runEventLoopFor(50ms);
    EXPECT_FALSE(isAnswered);
}

TEST_F(OpenPrompt, DoesNotKeepFurtherOnesFromOpening) {
    const auto manager = world_.createRefreshed();
    for (int i = 0; i < 5; ++i)
        manager->installAndStartDaemon();
    EXPECT_TRUE(waitUntil([&] { return promptCount() == 5; }));
}

} // namespace

} // namespace tarnwick
