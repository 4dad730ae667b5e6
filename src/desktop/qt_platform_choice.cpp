// SPDX-License-Identifier: MIT
#include "desktop/qt_platform_choice.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

QString preferredQtPlatforms(const QProcessEnvironment& environment) {
    const auto isSet = [&environment](const QString& name) {
        return !environment.value(name).isEmpty();
    };
    if (isSet(u"QT_QPA_PLATFORM"_s) || !isSet(u"WAYLAND_DISPLAY"_s) || !isSet(u"DISPLAY"_s))
        return {};
    return u"xcb;wayland"_s;
}

} // namespace tarnwick
