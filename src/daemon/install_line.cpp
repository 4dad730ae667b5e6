// SPDX-License-Identifier: MIT
#include "daemon/install_line.h"

#include <QStringList>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString& path) {
    return u'\'' + path + u'\'';
}

QString copy(const QString& from, const QString& to) {
    return u"cp "_s + quoted(from) + u' ' + quoted(to);
}

} // namespace

QString installLine(const Platform& platform, const ToolPaths& sources, const QString& jobFile) {
    const ToolPaths targets = ToolPaths::installed(platform);
    const QStringList steps = {
        u"mkdir -p "_s + quoted(platform.installDir), copy(sources.daemonPath, targets.daemonPath),
        copy(sources.cliPath, targets.cliPath),       u"chmod +x "_s + quoted(targets.daemonPath),
        u"chmod +x "_s + quoted(targets.cliPath),     u"mkdir -p /var/run"_s,
        copy(jobFile, platform.installedJobFile),     platform.loadJobStep,
    };
    return steps.join(u" && "_s);
}

} // namespace tarnwick
