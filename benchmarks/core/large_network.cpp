// SPDX-License-Identifier: MIT
// A refresh of a large network: from the end of the tool to the published state, in wall time.
#include "daemon/daemon_manager.h"
#include "support/sample_network.h"

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <system_error>

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// The last thing that the tool does is to touch a file, whose time is that of its end.
constexpr auto script = R"(#!/bin/sh
here=${0%/*}
cat "$here/$2"
: > "$here/end"
)";

class LargeNetwork {
public:
    explicit LargeNetwork(int peers) {
        write(u"status"_s, tarnwick::bench::statusDocument(peers));
        write(u"switch"_s, "ID Network Account\np1 harbor mira*\n");
        const auto platform = tarnwick::linuxPlatform();
        write(u"tarnwick-daemon-"_s + platform.variantSuffix(u"x86_64"_s), "");
        const QString tool = u"tarnwick-"_s + platform.variantSuffix(u"x86_64"_s);
        write(tool, script);
        QFile::setPermissions(directory_.filePath(tool), QFile::ReadOwner | QFile::ExeOwner);
        manager_ = tarnwick::DaemonManager::create(options());
    }

    /// Refreshes once; the seconds from the tool's end to the published state.
    double refresh() {
        QEventLoop loop;
        manager_->refreshStatus(false, [&loop] { loop.quit(); });
        loop.exec();
        std::error_code noRunYet;
        const auto end =
            std::filesystem::last_write_time(directory_.filePath(u"end"_s).toStdString(), noRunYet);
        return std::chrono::duration<double>(decltype(end)::clock::now() - end).count();
    }

    qsizetype devices() const { return manager_->state().devices.size(); }

private:
    void write(const QString& name, const QByteArray& content) const {
        QFile file(directory_.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write the tool's files");
    }

    tarnwick::DaemonManagerOptions options() const {
        tarnwick::DaemonManagerOptions options;
        options.platform = tarnwick::linuxPlatform();
        options.platform.systemSocket = directory_.filePath(u"no-socket"_s);
        options.platform.installDir = directory_.filePath(u"nothing-installed"_s);
        options.timing.statusPollInterval = 24h;
        options.timing.profileRefreshInterval = 24h;
        options.timing.pollStep = 1ms;
        options.bundleDir = directory_.path();
        options.homeDir = directory_.path();
        options.machine = u"x86_64"_s;
        options.settings = std::make_unique<QSettings>(directory_.filePath(u"client.conf"_s),
                                                       QSettings::IniFormat);
        return options;
    }

    QTemporaryDir directory_;
    std::shared_ptr<tarnwick::DaemonManager> manager_;
};

void publishStatus(benchmark::State& state) {
    LargeNetwork network(static_cast<int>(state.range(0)));
    while (network.devices() == 0) // the first refresh answers the second at once
        network.refresh();
    if (network.devices() != state.range(0))
        state.SkipWithError("not all devices were published");
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(network.refresh());
}

BENCHMARK(publishStatus)->Arg(10)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
