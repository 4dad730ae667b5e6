// SPDX-License-Identifier: MIT
#include "ui/style/text_style.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>

namespace tarnwick {

namespace {

/// Of the application object, which is what fonts belong to.
constexpr const char* monospacedFamilyProperty = "tarnwickMonospacedFamily";

QFont monospacedFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const QString family = qApp->property(monospacedFamilyProperty).toString();
    if (!family.isEmpty())
        font.setFamily(family);
    return font;
}

QFont::Weight fontWeight(const TextLook& look) {
    switch (look.weight) {
    case TextWeight::Medium:
        return QFont::Medium;
    case TextWeight::Semibold:
        return QFont::DemiBold;
    case TextWeight::Natural:
        break;
    }
    return look.style == TextStyle::Headline ? QFont::DemiBold : QFont::Normal;
}

} // namespace

int nominalSize(TextStyle style) {
    switch (style) {
    case TextStyle::Title2:
        return 17;
    case TextStyle::Title3:
        return 15;
    case TextStyle::Headline:
    case TextStyle::Body:
        return 13;
    case TextStyle::Caption:
    case TextStyle::Caption2:
        return 11;
    }
    return 13;
}

double userTextScale() {
    constexpr double smallestUsual = 12; // 9 points at 96 dots an inch
    constexpr double largestUsual = 13;  // 10 points
    constexpr double smallestScale = 0.8;
    constexpr double largestScale = 2; // beyond it the fixed width of the panel holds no word
    const double size = QFontInfo(QApplication::font()).pixelSize();
    const double usual = std::clamp(size, smallestUsual, largestUsual);
    return std::clamp(size / usual, smallestScale, largestScale);
}

int scaledSize(TextStyle style) {
    return qRound(nominalSize(style) * userTextScale());
}

void setMonospacedFamily(const QString& family) {
    qApp->setProperty(monospacedFamilyProperty, family);
}

QFont TextLook::font() const {
    QFont font = design == TextDesign::Monospaced ? monospacedFont() : QApplication::font();
    font.setPixelSize(scaledSize(style));
    font.setWeight(fontWeight(*this));
    return font;
}

} // namespace tarnwick
