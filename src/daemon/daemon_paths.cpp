// SPDX-License-Identifier: MIT
#include "daemon/daemon_paths.h"

#include <QDir>
#include <QFileInfo>

namespace tarnwick {

using namespace Qt::StringLiterals;

QString DaemonPaths::stateDir() const {
    const QString path = homeDir + u"/.tarnwick"_s;
    QDir().mkpath(path);
    return path;
}

QString DaemonPaths::socketPath() const {
    return QFileInfo::exists(systemSocket) ? systemSocket : stateDir() + u"/tarnwick.sock"_s;
}

} // namespace tarnwick
