// SPDX-License-Identifier: MIT
#include "ui/style/colors.h"

#include <QList>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

QColor withOpacity(QColor color, double opacity) {
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

/// Contrast ratios to be had on the background.
struct Contrasts {
    double text = 4.5;
    double shape = 3;
    double line = 3; ///< Borders and dividers, in high contrast alone.
};

Contrasts contrastsFor(const QPalette& palette) {
    return hasHighContrast(palette) ? Contrasts{7, 4.5, 3} : Contrasts{};
}

/// Moves the colour towards white or black until it has that contrast on all backgrounds.
QColor standingOut(const QColor& color, const QList<QColor>& backgrounds, double contrast) {
    const QColor& background = backgrounds.first();
    const bool towardsWhite =
        contrastRatio(Qt::white, background) > contrastRatio(Qt::black, background);
    const QColor end = towardsWhite ? Qt::white : Qt::black;
    constexpr int steps = 50;
    for (int step = 0; step < steps; ++step) {
        const QColor candidate = blended(withOpacity(end, double(step) / steps), color);
        if (std::ranges::all_of(backgrounds, [&](const QColor& under) {
                return contrastRatio(candidate, under) >= contrast;
            }))
            return candidate;
    }
    return end;
}

/// The background, and that of a highlighted row.
QList<QColor> rowBackgrounds(const QPalette& palette) {
    const QColor background = backgroundColor(palette);
    return {background, blended(highlightColor(palette), background)};
}

/// In light palettes brighter than any text may be: darkened from there, the hues stay vivid.
QColor wanted(ThemeColor color, const QPalette& palette) {
    const bool dark = isDark(palette);
    switch (color) {
    case ThemeColor::Secondary:
        return blended(withOpacity(palette.color(QPalette::WindowText), 0.6),
                       backgroundColor(palette));
    case ThemeColor::Green:
        return dark ? QColor(0x32, 0xd7, 0x4b) : QColor(0x0c, 0xc0, 0x42);
    case ThemeColor::Orange:
        return dark ? QColor(0xff, 0x9f, 0x0a) : QColor(0xff, 0x6f, 0x00);
    case ThemeColor::Red:
        return dark ? QColor(0xff, 0x69, 0x61) : QColor(0xe5, 0x23, 0x1d);
    case ThemeColor::Label:
        break;
    }
    return palette.color(QPalette::WindowText);
}

/// The text's colour, fainter; in high contrast an opaque one that stands out.
QColor lineColor(const QPalette& palette, double opacity) {
    const QColor background = backgroundColor(palette);
    const QColor line = withOpacity(palette.color(QPalette::WindowText), opacity);
    if (!hasHighContrast(palette))
        return line;
    return standingOut(blended(line, background), {background}, contrastsFor(palette).line);
}

} // namespace

bool isDark(const QPalette& palette) {
    return luminance(palette.color(QPalette::WindowText)) > luminance(backgroundColor(palette));
}

QColor backgroundColor(const QPalette& palette) {
    return withOpacity(palette.color(QPalette::Window), 1);
}

bool hasHighContrast(const QPalette& palette) {
    constexpr double least = 20; // of 21, black on white
    return contrastRatio(palette.color(QPalette::WindowText), backgroundColor(palette)) >= least;
}

QColor themeColor(ThemeColor color, const QPalette& palette) {
    const bool isOnRows = color == ThemeColor::Label || color == ThemeColor::Secondary;
    return standingOut(wanted(color, palette),
                       isOnRows ? rowBackgrounds(palette) : QList{backgroundColor(palette)},
                       contrastsFor(palette).text);
}

QColor shapeColor(ThemeColor color, const QPalette& palette) {
    return standingOut(wanted(color, palette), rowBackgrounds(palette),
                       contrastsFor(palette).shape);
}

QColor highlightColor(const QPalette& palette) {
    return withOpacity(palette.color(QPalette::WindowText), 0.08);
}

QColor dividerColor(const QPalette& palette) {
    return lineColor(palette, 0.12);
}

QColor borderColor(const QPalette& palette) {
    return lineColor(palette, 0.16);
}

QColor focusColor(const QPalette& palette) {
    return standingOut(withOpacity(palette.color(QPalette::Highlight), 1), rowBackgrounds(palette),
                       contrastsFor(palette).shape);
}

ProminentColors prominentColors(const QPalette& palette) {
    constexpr double lightAccent = 2.5;
    QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    accent.setAlpha(255);
    if (contrastRatio(Qt::white, accent) < lightAccent)
        return {accent, Qt::black};
    return {standingOut(accent, {Qt::white}, contrastsFor(palette).text), Qt::white};
}

QColor offlineDotColor() {
    return withOpacity(QColor(0x8e, 0x8e, 0x93), 0.4);
}

double contrastRatio(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor blended(const QColor& over, const QColor& background) {
    const float alpha = over.alphaF();
    const auto mix = [alpha](float top, float bottom) {
        return top * alpha + bottom * (1 - alpha);
    };
    return QColor::fromRgbF(mix(over.redF(), background.redF()),
                            mix(over.greenF(), background.greenF()),
                            mix(over.blueF(), background.blueF()));
}

} // namespace tarnwick
