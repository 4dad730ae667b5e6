// SPDX-License-Identifier: MIT
#include "support/controller_world.h"

#include "support/waiting.h"

#include <QDir>
#include <QFile>
#include <QSettings>

namespace tarnwick::test {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

// Ends with the test's directory too, so that no tool outlives a test for long.
constexpr auto script = R"sh(
while [ -e "$here/closed" ]; do sleep 0.005; done
name=$1
[ "$1 $2" = 'switch --list' ] && name=list
[ ! -e "$here/answer-$name" ] || cat "$here/answer-$name"
)sh";

Timing timingForTests() {
    Timing timing;
    timing.statusPollInterval = 1h;
    timing.profileRefreshInterval = 1h;
    timing.commandTimeout = 40s;
    timing.loginTimeout = 40s;
    timing.probeTimeout = 40s;
    timing.pollStep = 2ms;
    timing.switchPause = 1ms;
    timing.daemonStartPause = 1ms;
    timing.refreshAfterInstall = 1ms;
    return timing;
}

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write a file of the test");
}

} // namespace

ControllerWorld::ControllerWorld()
    : platform(linuxPlatform()), timing(timingForTests()), tool(script) {
    QDir(directory_.path()).mkdir(u"home"_s);
    platform.systemSocket = directory_.filePath(u"system.sock"_s);
    platform.installDir = directory_.filePath(u"installed"_s);
    platform.nudgeDaemon = {u"/bin/true"_s, {}};
    const ToolPaths paths = bundledPaths();
    QFile::link(tool.path(), paths.cliPath);
    writeFile(paths.daemonPath, "a daemon");
    answer("status", connectedStatus());
    answer("list", profileList());
}

ControllerWorld::~ControllerWorld() {
    openGate();
}

ToolPaths ControllerWorld::bundledPaths() const {
    return {bundleDir() + u"/tarnwick-linux-amd64"_s,
            bundleDir() + u"/tarnwick-daemon-linux-amd64"_s};
}

DaemonManagerOptions ControllerWorld::options() const {
    DaemonManagerOptions options;
    options.platform = platform;
    options.timing = timing;
    options.bundleDir = bundleDir();
    options.homeDir = homeDir();
    options.machine = u"x86_64"_s;
    options.settings = std::make_unique<QSettings>(settingsFile(), QSettings::IniFormat);
    return options;
}

std::shared_ptr<DaemonManager> ControllerWorld::create() const {
    return DaemonManager::create(options());
}

std::shared_ptr<DaemonManager> ControllerWorld::createRefreshed() const {
    auto manager = create();
    if (!waitForRefresh(*manager))
        qFatal("the first refresh did not end");
    return manager;
}

void ControllerWorld::answer(const char* command, const QByteArray& output) const {
    writeFile(tool.directory() + u"/answer-"_s + QString::fromLatin1(command), output);
}

void ControllerWorld::closeGate() const {
    writeFile(tool.directory() + u"/closed"_s, {});
}

void ControllerWorld::openGate() const {
    QFile::remove(tool.directory() + u"/closed"_s);
}

ProfileDetailsMap ControllerWorld::storedDetails() const {
    return ProfileDetailsStore(std::move(options().settings), platform.profileDetailsKey).load();
}

void ControllerWorld::storeDetails(const ProfileDetailsMap& details) const {
    ProfileDetailsStore(std::move(options().settings), platform.profileDetailsKey).save(details);
}

QByteArray ControllerWorld::connectedStatus() {
    return R"({"BackendState":"Running","Self":{"HostName":"laptop","Online":true,
        "TailscaleIPs":["100.64.0.2","fd7a::2"]},"Peer":{
        "k2":{"HostName":"beta","OS":"linux"},"k1":{"HostName":"alpha","Online":true}}})";
}

QByteArray ControllerWorld::stoppedStatus() {
    return R"({"BackendState":"Stopped"})";
}

QByteArray ControllerWorld::profileList() {
    return "ID  Network  Account\np1  harbor  mira*\np2  kite  mira l\n";
}

bool waitForRefresh(DaemonManager& manager) {
    // A refresh publishes everything in one turn of the event loop: one field speaks for all.
    bool hasPublished = false;
    QObject context;
    QObject::connect(&manager.published(), &PublishedState::objectWillChange, &context,
                     [&hasPublished] { hasPublished = true; });
    return waitUntil([&hasPublished] { return hasPublished; });
}

bool refresh(DaemonManager& manager, bool forceProfiles) {
    bool isDone = false;
    manager.refreshStatus(forceProfiles, [&isDone] { isDone = true; });
    return waitUntil([&isDone] { return isDone; });
}

} // namespace tarnwick::test
