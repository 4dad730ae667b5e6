// SPDX-License-Identifier: MIT
#include "desktop/session_environment.h"

#include <QStandardPaths>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// A part of a file name: ":0" and ":0.0" are the same display, and Wayland's may be a path.
QString displayName(const QProcessEnvironment& environment) {
    QString name = environment.value(u"WAYLAND_DISPLAY"_s);
    if (name.isEmpty()) {
        name = environment.value(u"DISPLAY"_s);
        const qsizetype dot = name.indexOf(u'.', name.lastIndexOf(u':'));
        if (dot > 0 && name.contains(u':'))
            name.truncate(dot);
    }
    for (QChar& character : name) {
        if (character == u'/' || character == u':')
            character = u'-';
    }
    return name;
}

} // namespace

SessionPaths SessionPaths::in(const QString& runtimeDir, const QProcessEnvironment& environment) {
    const QString stem = runtimeDir + u"/tarnwick-client"_s + displayName(environment);
    return {stem + u".lock"_s, stem + u".socket"_s};
}

SessionPaths SessionPaths::ofThisSession() {
    return in(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation),
              QProcessEnvironment::systemEnvironment());
}

QString preferredQtPlatforms(const QProcessEnvironment& environment) {
    const auto isSet = [&environment](const QString& name) {
        return !environment.value(name).isEmpty();
    };
    if (isSet(u"QT_QPA_PLATFORM"_s) || !isSet(u"WAYLAND_DISPLAY"_s) || !isSet(u"DISPLAY"_s))
        return {};
    return u"xcb;wayland"_s;
}

QStringList desktopNames(const QProcessEnvironment& environment) {
    return environment.value(u"XDG_CURRENT_DESKTOP"_s).toUpper().split(u':', Qt::SkipEmptyParts);
}

bool isGnome(const QProcessEnvironment& environment) {
    return desktopNames(environment).contains("GNOME"_L1);
}

} // namespace tarnwick
