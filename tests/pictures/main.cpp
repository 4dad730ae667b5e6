// SPDX-License-Identifier: MIT
#include "panel_pictures.h"
#include "references.h"
#include "support/controller_world.h"
#include "ui/style/appearance_style.h"
#include "window_pictures.h"

#include <QApplication>
#include <QFontDatabase>
#include <QProcessEnvironment>
#include <QSet>
#include <QTextStream>

#include <utility>

namespace {

using namespace Qt::StringLiterals;
using namespace tarnwick;

constexpr int usage = 2;

/// Whatever this machine and its user prefer: one screen, four fonts, Qt's own style.
void fixSurroundings(const QByteArray& scale) {
    for (const QString& name : QProcessEnvironment::systemEnvironment().keys()) {
        if (name.startsWith("QT_"_L1))
            qunsetenv(name.toLocal8Bit());
    }
    qputenv("QT_SCALE_FACTOR", scale);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TARNWICK_PICTURES "/screen.json");
    qputenv("QT_LOGGING_RULES", "*.warning=false"); // of what that screen cannot do
    qputenv("FONTCONFIG_FILE", TARNWICK_PICTURES "/fonts.conf");
}

Appearance look(Appearance::Scheme scheme, bool hasHighContrast) {
    constexpr double points = 10;
    return {.scheme = scheme,
            .hasHighContrast = hasHighContrast,
            .font = Appearance::Font{u"DejaVu Sans"_s, points},
            .monospacedFont = Appearance::Font{u"DejaVu Sans Mono"_s, points}};
}

/// What has each colour once: that they have contrast enough is tested elsewhere.
bool isWantedInHighContrast(const QString& scene) {
    static const QSet<QString> scenes{u"connected-devices"_s, u"connected-keyboard"_s, u"error"_s,
                                      u"stopped-profiles"_s, u"auth-key-refused"_s};
    return scenes.contains(scene);
}

void paintAll(const pictures::TakePicture& take) {
    using enum Appearance::Scheme;
    const std::pair<QString, Appearance> looks[] = {{u"light"_s, look(Light, false)},
                                                    {u"dark"_s, look(Dark, false)},
                                                    {u"light-contrast"_s, look(Light, true)},
                                                    {u"dark-contrast"_s, look(Dark, true)}};
    AppearanceStyle style;
    for (const auto& [name, appearance] : looks) {
        style.apply(appearance);
        const test::ControllerWorld world;
        const auto daemon = world.createRefreshed();
        const auto takeInLook = [&take, &look = name, &appearance = appearance](
                                    const QString& scene, const QImage& picture) {
            if (!appearance.hasHighContrast || isWantedInHighContrast(scene))
                take(scene + u'-' + look, picture);
        };
        pictures::paintPanels(daemon, takeInLook);
        pictures::paintWindows(world, daemon, takeInLook);
    }
}

bool save(const QDir& folder, const QString& fileEnding) {
    bool saved = true;
    paintAll([&](const QString& name, const QImage& picture) {
        saved = picture.save(folder.filePath(name + fileEnding)) && saved;
    });
    return saved;
}

bool accept(pictures::References& references) {
    bool saved = true;
    paintAll([&](const QString& name, const QImage& picture) {
        saved = references.accept(name, picture) && saved;
    });
    return references.removeUnused() && saved;
}

bool compare(pictures::References& references, QDir results, const QString& fileEnding) {
    for (const QString& old : results.entryList({u'*' + fileEnding}))
        results.remove(old);
    QTextStream out(stdout);
    int failures = 0;
    const auto report = [&](const QString& name, const QString& failure) {
        ++failures;
        out << name << ' ' << failure << '\n';
    };
    int pictures = 0;
    paintAll([&](const QString& name, const QImage& picture) {
        ++pictures;
        const QString difference = references.compare(name, picture, results);
        if (!difference.isEmpty())
            report(name, difference);
    });
    for (const QString& file : references.unused())
        report(file, u"shows nothing that there still is"_s);
    out << pictures << " pictures, " << failures << " differences\n";
    if (failures > 0)
        out << "See " << results.path()
            << ". If this is what was wanted: scripts/pictures --accept\n";
    return failures == 0;
}

} // namespace

/// Paints every state, at that many pixels a point, and saves the pictures in the folder, or
/// compares them with the references and leaves there what differs, or makes them the references.
int main(int argc, char** argv) {
    const QList<QByteArray> arguments(argv + 1, argv + argc);
    const QByteArray mode = arguments.value(1);
    if (arguments.size() != (mode == "accept" ? 2 : 3)) {
        QTextStream(stderr) << "usage: tarnwick-pictures 1|2 save FOLDER|compare FOLDER|accept\n";
        return usage;
    }
    fixSurroundings(arguments[0]);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setCursorFlashTime(0);
    if (!QFontDatabase::families().contains(u"DejaVu Sans Mono"_s)) {
        QTextStream(stderr) << "The fonts are missing: fonts-dejavu-core\n";
        return usage;
    }
    const QString fileEnding = u"@%1x.png"_s.arg(QString::fromLatin1(arguments[0]));
    pictures::References references(QDir(TARNWICK_PICTURES "/references"_L1), fileEnding);
    if (mode == "accept")
        return accept(references) ? 0 : 1;
    const QDir folder(QString::fromLocal8Bit(arguments[2]));
    if (!folder.mkpath(u"."_s))
        return usage;
    const bool isRight =
        mode == "save" ? save(folder, fileEnding) : compare(references, folder, fileEnding);
    return isRight ? 0 : 1;
}
