// SPDX-License-Identifier: MIT
#include "daemon/tool_paths.h"

#include <QDir>
#include <QFileInfo>

namespace tarnwick {

using namespace Qt::StringLiterals;

ToolPaths ToolPaths::installed(const Platform& platform) {
    return {platform.installDir + u"/tarnwick"_s, platform.installDir + u"/tarnwick-daemon"_s};
}

ToolPaths ToolPaths::resolve(const Platform& platform, const QString& machine,
                             const QString& bundleDir, const QString& homeDir) {
    const ToolPaths installedPaths = installed(platform);
    if (installedPaths.exist())
        return installedPaths;

    const QString suffix = platform.variantSuffix(machine);
    const auto variantsIn = [&suffix](const QString& directory) {
        return ToolPaths{directory + u"/tarnwick-"_s + suffix,
                         directory + u"/tarnwick-daemon-"_s + suffix};
    };
    const ToolPaths bundled = variantsIn(bundleDir);
    if (QFileInfo::exists(bundled.daemonPath))
        return bundled; // the tool is packaged beside it
    return variantsIn(homeDir + u"/Development/kvo-term/harrowgate-client/daemon/dist"_s);
}

bool ToolPaths::exist() const {
    return QFileInfo::exists(daemonPath) && QFileInfo::exists(cliPath);
}

QString DaemonPaths::stateDir() const {
    const QString path = homeDir + u"/.tarnwick"_s;
    if (!QFileInfo::exists(path))
        QDir().mkpath(path);
    return path;
}

QString DaemonPaths::socketPath() const {
    return QFileInfo::exists(systemSocket) ? systemSocket : stateDir() + u"/tarnwick.sock"_s;
}

} // namespace tarnwick
