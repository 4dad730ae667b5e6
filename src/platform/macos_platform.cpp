// SPDX-License-Identifier: MIT
#include "platform/computer_name.h"
#include "platform/platform.h"
#include "platform/version.h"

namespace tarnwick {

namespace {

// launchd restarts the daemon whenever it ends. BROWSER keeps a daemon that wants to open a log-in
// page from opening it as root.
constexpr auto launchdJob = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
    <key>Label</key>
    <string>com.tarnwick.daemon</string>
    <key>Program</key>
    <string>/Library/Application Support/Tarnwick/tarnwick-daemon</string>
    <key>ProgramArguments</key>
    <array>
        <string>/Library/Application Support/Tarnwick/tarnwick-daemon</string>
        <string>--state=/Library/Application Support/Tarnwick/state.json</string>
        <string>--socket=/var/run/tarnwick.sock</string>
        <string>--tun=tarnwick0</string>
        <string>--no-logs-no-support</string>
    </array>
    <key>RunAtLoad</key>
    <true/>
    <key>KeepAlive</key>
    <true/>
    <key>EnvironmentVariables</key>
    <dict>
        <key>BROWSER</key>
        <string>echo</string>
    </dict>
    <key>StandardOutPath</key>
    <string>/Library/Logs/tarnwick-daemon.log</string>
    <key>StandardErrorPath</key>
    <string>/Library/Logs/tarnwick-daemon.log</string>
</dict>
</plist>
)";

// The shell line becomes an AppleScript string literal. Only double quotes are escaped: a backslash
// in the line keeps its meaning in AppleScript.
CommandLine authoriseWithAppleScript(const QString& shellLine) {
    QString escaped = shellLine;
    escaped.replace(QLatin1Char('"'), QStringLiteral("\\\""));
    const QString statement = QStringLiteral("do shell script \"") + escaped +
                              QStringLiteral("\" with administrator privileges");
    return {QStringLiteral("/usr/bin/osascript"), {QStringLiteral("-e"), statement}};
}

} // namespace

Platform macOSPlatform() {
    const QString job = QStringLiteral("com.tarnwick.daemon");
    const QString jobFile = job + QStringLiteral(".plist");
    const QString installedJobFile = QStringLiteral("/Library/LaunchDaemons/") + jobFile;
    return {
        .systemName = QStringLiteral("darwin"),
        .arm64Machines = {QStringLiteral("arm64")},
        .systemSocket = QStringLiteral("/var/run/tarnwick.sock"),
        .installDir = QStringLiteral("/Library/Application Support/Tarnwick"),
        .jobFileName = jobFile,
        .jobFileText = QString::fromLatin1(launchdJob),
        .installedJobFile = installedJobFile,
        .bundledJobDirectory = QStringLiteral("/../Resources/"),
        .loadJobStep = QStringLiteral("launchctl load ") + installedJobFile,
        .authorise = authoriseWithAppleScript,
        .nudgeDaemon = {QStringLiteral("/bin/launchctl"), {QStringLiteral("start"), job}},
        .settingsOrganization = QStringLiteral("tarnwick.com"),
        .settingsApplication = QStringLiteral("client"),
        .settingsAreOneFile = false,
        // The entry is "tarnwick.profileDetails": there QSettings stores "/" as ".", and a "." as
        // another character.
        .profileDetailsKey = QStringLiteral("tarnwick/profileDetails"),
        .version = versionFromBundle,
        .computerName = computerNameFromSystemConfiguration,
        .templateIcon = true,
        .iconMenu = false,
    };
}

} // namespace tarnwick
