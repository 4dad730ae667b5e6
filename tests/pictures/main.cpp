// SPDX-License-Identifier: MIT
#include "painter.h"
#include "scenes.h"
#include "support/controller_world.h"
#include "support/publishing.h"
#include "window_pictures.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QTextStream>

namespace {

using namespace Qt::StringLiterals;
using namespace tarnwick;

constexpr int usage = 2;

void useFont(const QString& family) {
    constexpr int points = 10;
    if (QFontDatabase::families().contains(family))
        QApplication::setFont(QFont(family, points));
}

bool paintAll(const QDir& folder, bool isDark, const QString& only) {
    QApplication::setPalette(pictures::palette(isDark));
    const test::ControllerWorld world;
    const auto daemon = world.createRefreshed();
    bool saved = true;
    for (const pictures::Scene& scene : pictures::allScenes()) {
        if (!only.isEmpty() && scene.name != only)
            continue;
        QApplication::setLayoutDirection(scene.isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        test::publish(*daemon, scene.state);
        MenuBarView panel(daemon, {});
        const QImage image = pictures::picture(panel, scene, isDark);
        const QString file = u"%1-%2@%3x.png"_s.arg(scene.name, isDark ? u"dark"_s : u"light"_s)
                                 .arg(panel.devicePixelRatioF());
        saved = image.save(folder.filePath(file)) && saved;
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
    return pictures::paintWindows(daemon, folder, isDark, only) && saved;
}

} // namespace

/// tarnwick-pictures FOLDER light|dark [SCENE]: paints every scene, or one, into the folder. The
/// scale is that of QT_SCALE_FACTOR.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3 || !QDir().mkpath(arguments[1])) {
        QTextStream(stderr) << "usage: tarnwick-pictures FOLDER light|dark [SCENE]\n";
        return usage;
    }
    useFont(qEnvironmentVariable("TARNWICK_PICTURES_FONT", u"Inter"_s));
    return paintAll(QDir(arguments[1]), arguments[2] == "dark"_L1, arguments.value(3)) ? 0 : 1;
}
