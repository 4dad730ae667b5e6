// SPDX-License-Identifier: MIT
#include "platform/computer_name.h"
#include "platform/platform.h"
#include "platform/version.h"

namespace tarnwick {

namespace {

// systemd restarts the daemon whenever it ends. BROWSER keeps a daemon that wants to open a log-in
// page from opening it as root.
constexpr auto systemdUnit = R"([Unit]
Description=Tarnwick mesh network daemon
Wants=network-online.target
After=network-online.target
StartLimitIntervalSec=0

[Service]
ExecStart=/opt/tarnwick/tarnwick-daemon --state=/var/lib/tarnwick/state.json --socket=/var/run/tarnwick.sock --tun=tarnwick0 --no-logs-no-support
Environment=BROWSER=echo
StateDirectory=tarnwick
Restart=always
RestartSec=10

[Install]
WantedBy=multi-user.target
)";

// Without the textual agent, which would wait for a terminal that the client does not have.
CommandLine authoriseWithPolicyKit(const QString& shellLine) {
    return {QStringLiteral("/usr/bin/pkexec"),
            {QStringLiteral("--disable-internal-agent"), QStringLiteral("/bin/sh"),
             QStringLiteral("-c"), shellLine}};
}

} // namespace

Platform linuxPlatform() {
    const QString job = QStringLiteral("tarnwick-daemon.service");
    return {
        .systemName = QStringLiteral("linux"),
        .arm64Machines = {QStringLiteral("aarch64"), QStringLiteral("arm64")},
        .systemSocket = QStringLiteral("/var/run/tarnwick.sock"),
        .installDir = QStringLiteral("/opt/tarnwick"),
        .jobFileName = job,
        .jobFileText = QString::fromLatin1(systemdUnit),
        .installedJobFile = QStringLiteral("/etc/systemd/system/") + job,
        .bundledJobDirectory = QStringLiteral("/../share/tarnwick/"),
        .loadJobStep = QStringLiteral("systemctl daemon-reload && systemctl enable --now ") + job,
        .authorise = authoriseWithPolicyKit,
        .nudgeDaemon = {QStringLiteral("/usr/bin/systemctl"),
                        {QStringLiteral("--no-ask-password"), QStringLiteral("start"), job}},
        .settingsOrganization = QStringLiteral("tarnwick"),
        .settingsApplication = QStringLiteral("client"),
        .settingsAreOneFile = true,
        .profileDetailsKey = QStringLiteral("tarnwick.profileDetails"),
        .version = versionCompiledIn,
        .computerName = computerNameFromMachineInfo,
        .templateIcon = false,
        .iconMenu = true,
    };
}

} // namespace tarnwick
