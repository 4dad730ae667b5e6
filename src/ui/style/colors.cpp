// SPDX-License-Identifier: MIT
#include "ui/style/colors.h"

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double textContrast = 4.5;
constexpr double shapeContrast = 3.0;

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

/// Moves the colour towards white or black until it has that contrast on the background and on
/// a highlighted row.
QColor standingOut(const QColor& color, const QPalette& palette, double contrast) {
    const QColor background = backgroundColor(palette);
    const QColor highlighted = blended(highlightColor(palette), background);
    const bool towardsWhite =
        contrastRatio(Qt::white, background) > contrastRatio(Qt::black, background);
    const QColor end = towardsWhite ? Qt::white : Qt::black;
    constexpr int steps = 50;
    for (int step = 0; step < steps; ++step) {
        const QColor candidate = blended(withOpacity(end, double(step) / steps), color);
        if (std::min(contrastRatio(candidate, background), contrastRatio(candidate, highlighted)) >=
            contrast)
            return candidate;
    }
    return end;
}

QColor wanted(ThemeColor color, const QPalette& palette) {
    const bool dark = isDark(palette);
    switch (color) {
    case ThemeColor::Secondary:
        return blended(withOpacity(palette.color(QPalette::WindowText), 0.6),
                       backgroundColor(palette));
    case ThemeColor::Green:
        return dark ? QColor(0x32, 0xd7, 0x4b) : QColor(0x1a, 0x7f, 0x37);
    case ThemeColor::Orange:
        return dark ? QColor(0xff, 0x9f, 0x0a) : QColor(0xb3, 0x54, 0x00);
    case ThemeColor::Red:
        return dark ? QColor(0xff, 0x69, 0x61) : QColor(0xd0, 0x21, 0x1c);
    case ThemeColor::Label:
        break;
    }
    return palette.color(QPalette::WindowText);
}

} // namespace

bool isDark(const QPalette& palette) {
    return luminance(palette.color(QPalette::WindowText)) > luminance(backgroundColor(palette));
}

QColor backgroundColor(const QPalette& palette) {
    return withOpacity(palette.color(QPalette::Window), 1);
}

QColor themeColor(ThemeColor color, const QPalette& palette) {
    return standingOut(wanted(color, palette), palette, textContrast);
}

QColor highlightColor(const QPalette& palette) {
    return withOpacity(palette.color(QPalette::WindowText), 0.08);
}

QColor dividerColor(const QPalette& palette) {
    return withOpacity(palette.color(QPalette::WindowText), 0.12);
}

QColor borderColor(const QPalette& palette) {
    return withOpacity(palette.color(QPalette::WindowText), 0.16);
}

QColor focusColor(const QPalette& palette) {
    return standingOut(withOpacity(palette.color(QPalette::Highlight), 1), palette, shapeContrast);
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
