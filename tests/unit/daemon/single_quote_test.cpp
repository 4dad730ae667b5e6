// SPDX-License-Identifier: MIT
#include "daemon/daemon_installer.h"
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

// A single quote in a path ends the quoting of the line that runs as administrator.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::ControllerWorld;
using test::waitUntil;

CommandLine noteThatItRan(const QString&) {
    return {u"/usr/bin/touch"_s, {qEnvironmentVariable("TARNWICK_TEST_SHELL_RAN")}};
}

struct QuotedPath {
    const char* name;
    QString (*quote)(DaemonInstaller::Sources&, const QString& home); ///< Returns the path.
};

class SingleQuote : public testing::Test {
protected:
    SingleQuote() {
        world_.platform.authorise = noteThatItRan;
        qputenv("TARNWICK_TEST_SHELL_RAN", shellRan().toUtf8());
    }

    ~SingleQuote() override { qunsetenv("TARNWICK_TEST_SHELL_RAN"); }

    QString shellRan() const { return world_.homeDir() + u"/shell-ran"_s; }

    DaemonInstaller::Sources sources() const {
        const auto options = world_.options();
        return {world_.platform,
                options.bundleDir,
                {options.homeDir, world_.platform.systemSocket},
                world_.bundledPaths(),
                Environment::ofThisProcess()};
    }

    std::optional<DaemonInstaller::Outcome> install(const DaemonInstaller::Sources& sources) const {
        std::optional<DaemonInstaller::Outcome> outcome;
        DaemonInstaller installer(sources, world_.timing, {});
        installer.install([&](const auto& reported) { outcome = reported; });
        EXPECT_TRUE(waitUntil([&] { return outcome.has_value(); }));
        return outcome;
    }

    ControllerWorld world_;
};

class SingleQuoteIn : public SingleQuote, public testing::WithParamInterface<QuotedPath> {};

TEST_P(SingleQuoteIn, IsReportedAndNothingRunsAsAdministrator) {
    auto quoted = sources();
    const QString path = GetParam().quote(quoted, world_.homeDir());
    ASSERT_TRUE(path.contains(u'\''));
    const auto outcome = install(quoted);
    ASSERT_TRUE(outcome);
    EXPECT_FALSE(outcome->succeeded);
    EXPECT_EQ(outcome->message, u"Failed to install: there is a single quote in "_s + path);
    EXPECT_FALSE(QFile::exists(shellRan()));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, SingleQuoteIn,
    testing::Values(QuotedPath{"Daemon",
                               [](auto& sources, const QString&) {
                                   return sources.tools.daemonPath = u"/it's/tarnwick-daemon"_s;
                               }},
                    QuotedPath{"Tool",
                               [](auto& sources, const QString&) {
                                   return sources.tools.cliPath = u"/it's/tarnwick"_s;
                               }},
                    QuotedPath{"BundledJobFile",
                               [](auto& sources, const QString& home) {
                                   sources.bundleDir = home + u"/it's"_s;
                                   sources.platform.bundledJobDirectory = u"/jobs/"_s;
                                   const QString jobs = sources.bundleDir + u"/jobs/"_s;
                                   QDir().mkpath(jobs);
                                   QFile file(jobs + sources.platform.jobFileName);
                                   EXPECT_TRUE(file.open(QIODevice::WriteOnly));
                                   return file.fileName();
                               }},
                    QuotedPath{"GeneratedJobFileInTheHomeDirectory",
                               [](auto& sources, const QString& home) {
                                   sources.paths.homeDir = home + u"/it's"_s;
                                   return sources.paths.homeDir + u"/.tarnwick/"_s +
                                          sources.platform.jobFileName;
                               }},
                    QuotedPath{"InstallDirectory",
                               [](auto& sources, const QString&) {
                                   return sources.platform.installDir = u"/opt/it's"_s;
                               }},
                    QuotedPath{"InstalledJobFile",
                               [](auto& sources, const QString&) {
                                   return sources.platform.installedJobFile =
                                              u"/etc/it's.service"_s;
                               }}),
    [](const auto& path) { return std::string(path.param.name); });

TEST_F(SingleQuote, OfTheUsersHomeDirectoryIsTheErrorMessage) {
    auto options = world_.options();
    options.homeDir = world_.homeDir() + u"/o'brien"_s;
    const auto manager = DaemonManager::create(std::move(options));
    std::optional<bool> succeeded;
    manager->installAndStartDaemon([&](bool outcome) { succeeded = outcome; });
    ASSERT_TRUE(waitUntil([&] { return succeeded.has_value(); }));
    EXPECT_FALSE(*succeeded);
    EXPECT_EQ(manager->state().errorMessage, u"Failed to install: there is a single quote in "_s +
                                                 world_.homeDir() +
                                                 u"/o'brien/.tarnwick/tarnwick-daemon.service"_s);
    EXPECT_FALSE(manager->state().daemonInstalled);
    EXPECT_FALSE(QFile::exists(shellRan()));
}

TEST_F(SingleQuote, InNoPathLetsTheShellRun) { // or the others would show nothing
    const auto outcome = install(sources());
    EXPECT_TRUE(outcome && outcome->succeeded);
    EXPECT_TRUE(QFile::exists(shellRan()));
}

} // namespace

} // namespace tarnwick
