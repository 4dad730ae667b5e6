// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "private_root.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

// The install line of both systems, run as administrator in a root of its own.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::ControllerWorld;
using test::PrivateRoot;
using test::waitUntil;

// The platform names a plain function, which finds the test's root here.
const PrivateRoot* currentRoot = nullptr;

CommandLine enterCurrentRoot(const QString& shellLine) {
    return currentRoot->enter(shellLine);
}

// AppleScript's part: from its one statement back to the line that it hands to the shell.
CommandLine enterThroughAppleScript(const QString& shellLine) {
    const QString statement = macOSPlatform().authorise(shellLine).arguments.value(1);
    const auto head = u"do shell script \""_s;
    const auto tail = u"\" with administrator privileges"_s;
    QString line = statement.mid(head.size(), statement.size() - head.size() - tail.size());
    return currentRoot->enter(line.replace(u"\\\""_s, u"\""_s));
}

struct Column {
    const char* name;
    Platform (*platform)();
    CommandLine (*authorise)(const QString&);
    QStringList lastSteps;
};

void PrintTo(const Column& column, std::ostream* out) {
    *out << column.name;
}

class InstallLineForReal : public testing::TestWithParam<Column> {
protected:
    void SetUp() override {
        if (!PrivateRoot::isAvailable())
            GTEST_SKIP() << "neither unshare nor proot works here: THE LINE HAS NOT BEEN RUN";
        currentRoot = &root_;
        const QString socket = world_.platform.systemSocket;
        world_.platform = GetParam().platform();
        world_.platform.systemSocket = socket;
        world_.platform.authorise = GetParam().authorise;
        options_ = world_.options();
        // Bundled files as a package has them, with the suffix of this column.
        const QString suffix = world_.platform.variantSuffix(options_.machine);
        bundled_ = {world_.bundleDir() + u"/tarnwick-"_s + suffix,
                    world_.bundleDir() + u"/tarnwick-daemon-"_s + suffix};
        for (const QString& file : {bundled_.cliPath, bundled_.daemonPath}) {
            QFile::remove(file);
            ASSERT_TRUE(QFile::copy(world_.tool.path(), file));
            ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner |
                                                        QFile::ReadGroup | QFile::ReadOther));
        }
        generated_ = world_.homeDir() + u"/.tarnwick/"_s + world_.platform.jobFileName;
    }

    void TearDown() override { currentRoot = nullptr; }

    /// The commands of the line, as they are called.
    QStringList steps() const {
        const QString target = world_.platform.installDir;
        return QStringList{u"mkdir -p "_s + target,
                           u"cp "_s + bundled_.daemonPath + u' ' + target + u"/tarnwick-daemon"_s,
                           u"cp "_s + bundled_.cliPath + u' ' + target + u"/tarnwick"_s,
                           u"chmod +x "_s + target + u"/tarnwick-daemon"_s,
                           u"chmod +x "_s + target + u"/tarnwick"_s,
                           u"mkdir -p /var/run"_s,
                           u"cp "_s + generated_ + u' ' + world_.platform.installedJobFile} +
               GetParam().lastSteps;
    }

    static bool install(DaemonManager& manager) {
        std::optional<bool> outcome;
        manager.installAndStartDaemon([&](bool succeeded) { outcome = succeeded; });
        EXPECT_TRUE(waitUntil([&] { return outcome.has_value(); }));
        return outcome.value_or(false);
    }

    PrivateRoot root_;
    ControllerWorld world_;
    DaemonManagerOptions options_;
    ToolPaths bundled_;
    QString generated_;
};

TEST_P(InstallLineForReal, PutsTheFilesInPlaceWithTheRightModesAndLoadsTheJobLast) {
    const auto manager = DaemonManager::create(std::move(options_));
    ASSERT_TRUE(install(*manager)) << manager->state().errorMessage.value_or(u""_s).toStdString();
    EXPECT_TRUE(manager->state().daemonInstalled);
    EXPECT_EQ(root_.commands(), steps());

    QFile tool(world_.tool.path());
    ASSERT_TRUE(tool.open(QIODevice::ReadOnly));
    const QByteArray program = tool.readAll();
    const QString target = world_.platform.installDir;
    const auto readable = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                          QFile::ReadOther | QFile::ReadUser | QFile::WriteUser;
    const auto executable =
        readable | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther | QFile::ExeUser;
    for (const auto& name : {u"/tarnwick"_s, u"/tarnwick-daemon"_s}) {
        EXPECT_EQ(root_.contentOf(target + name), program);
        EXPECT_EQ(root_.permissionsOf(target + name), executable);
    }
    const QString job = world_.platform.installedJobFile;
    EXPECT_EQ(root_.contentOf(job), world_.platform.jobFileText.toUtf8());
    EXPECT_EQ(root_.permissionsOf(job), readable);
}

TEST_P(InstallLineForReal, EachStepThatFailsStopsTheRestAndIsTheMessage) {
    const auto manager = DaemonManager::create(std::move(options_));
    const QStringList all = steps();
    for (qsizetype i = 0; i < all.size(); ++i) {
        root_.fail(all[i]);
        const auto before = root_.commands().size();
        EXPECT_FALSE(install(*manager));
        EXPECT_EQ(root_.commands().mid(before), all.mid(0, i + 1));
        EXPECT_EQ(manager->state().errorMessage, u"refused: "_s + all[i] + u'\n');
        EXPECT_FALSE(manager->state().daemonInstalled);
    }
}

TEST_P(InstallLineForReal, BundledFileThatIsGoneIsReportedByTheRealCopy) {
    const auto manager = DaemonManager::create(std::move(options_));
    ASSERT_TRUE(QFile::remove(bundled_.daemonPath));
    EXPECT_FALSE(install(*manager));
    EXPECT_TRUE(manager->state().errorMessage.value_or(u""_s).contains(bundled_.daemonPath));
    EXPECT_EQ(root_.commands().size(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    All, InstallLineForReal,
    testing::Values(Column{"Linux",
                           linuxPlatform,
                           enterCurrentRoot,
                           {u"systemctl daemon-reload"_s,
                            u"systemctl enable --now tarnwick-daemon.service"_s}},
                    Column{"MacOS",
                           macOSPlatform,
                           enterThroughAppleScript,
                           {u"launchctl load /Library/LaunchDaemons/com.tarnwick.daemon.plist"_s}}),
    [](const auto& column) { return std::string(column.param.name); });

} // namespace

} // namespace tarnwick
