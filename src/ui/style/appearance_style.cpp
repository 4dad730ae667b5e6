// SPDX-License-Identifier: MIT
#include "ui/style/appearance_style.h"

#include "ui/style/colors.h"
#include "ui/style/text_style.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QWidget>

#include <tuple>
#include <utility>

namespace tarnwick {

namespace {

using Scheme = Appearance::Scheme;

struct BackgroundAndText {
    QColor background;
    QColor text;
};

BackgroundAndText colorsFor(bool dark, bool highContrast) {
    if (highContrast)
        return dark ? BackgroundAndText{Qt::black, Qt::white}
                    : BackgroundAndText{Qt::white, Qt::black};
    return dark ? BackgroundAndText{QColor(0x2a, 0x2a, 0x2c), QColor(0xf2, 0xf2, 0xf4)}
                : BackgroundAndText{QColor(0xf8, 0xf8, 0xf9), QColor(0x1d, 0x1d, 0x20)};
}

void setAccent(QPalette& palette, const QColor& accent) {
    const bool takesWhite =
        contrastRatio(Qt::white, accent) >= contrastRatio(Qt::black, accent) / 2;
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, takesWhite ? Qt::white : Qt::black);
}

/// A whole palette, so that nothing of Qt's own shows through, which may be of the other scheme.
QPalette schemePalette(const BackgroundAndText& colors) {
    constexpr float halfOpaque = 0.5F;
    QPalette palette(colors.background, colors.background);
    QColor faint = colors.text;
    faint.setAlphaF(halfOpaque);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, colors.text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase,
                            QPalette::Button, QPalette::ToolTipBase})
        palette.setColor(role, colors.background);
    palette.setColor(QPalette::PlaceholderText, faint);
    setAccent(palette, QColor(0x35, 0x84, 0xe4));
    return palette;
}

QFont fontFor(const Appearance& appearance) {
    constexpr double pointsPerPixel = 0.75;
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    double points = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * pointsPerPixel;
    if (appearance.font) {
        font.setFamily(appearance.font->family);
        points = appearance.font->points;
    }
    font.setPointSizeF(points * appearance.textScale);
    return font;
}

/// To windows, as Qt does when the application's font changes.
void announceFontChange() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        QEvent change(QEvent::ApplicationFontChange);
        QCoreApplication::sendEvent(window, &change);
    }
}

} // namespace

QPalette paletteFor(const Appearance& appearance, const QPalette& own) {
    QPalette palette;
    if (appearance.colors) {
        if (appearance.colors->background == own.color(QPalette::Window) &&
            appearance.colors->text == own.color(QPalette::WindowText))
            return palette; // Qt has read them too, and more of them
        palette = schemePalette({appearance.colors->background, appearance.colors->text});
        if (appearance.accent)
            setAccent(palette, *appearance.accent);
        return palette;
    }
    const bool hasScheme = appearance.scheme != Scheme::NoPreference;
    if (hasScheme || appearance.hasHighContrast) {
        const bool dark = hasScheme ? appearance.scheme == Scheme::Dark : isDark(own);
        palette = schemePalette(colorsFor(dark, appearance.hasHighContrast));
    }
    if (appearance.accent)
        setAccent(palette, *appearance.accent);
    return palette;
}

void AppearanceStyle::apply(const Appearance& appearance) {
    const Appearance before = std::exchange(applied_, appearance);
    const auto colorsOf = [](const Appearance& of) {
        return std::tuple(of.scheme, of.colors, of.hasHighContrast, of.accent);
    };
    const auto fontOf = [](const Appearance& of) {
        return std::tuple(of.font, of.textScale);
    };
    if (colorsOf(appearance) != colorsOf(before)) {
        QApplication::setPalette(QPalette()); // Qt's own, to be looked at
        QApplication::setPalette(paletteFor(appearance, QApplication::palette()));
    }
    if (appearance.monospacedFont != before.monospacedFont) {
        const auto& font = appearance.monospacedFont;
        setMonospacedFamily(font ? font->family : QString());
        announceFontChange();
    }
    if (fontOf(appearance) != fontOf(before))
        QApplication::setFont(fontFor(appearance));
}

} // namespace tarnwick
