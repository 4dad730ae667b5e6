// SPDX-License-Identifier: MIT
#include "ui/prominent_button.h"

#include "ui/colors.h"

#include <QPainter>
#include <QStyle>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr double textContrast = 4.5;
constexpr double radius = 4;

struct ButtonColors {
    QColor ground;
    QColor title;
};

// White on the accent colour, which is darkened as far as that needs; a light accent keeps its
// shade and gets a black title.
ButtonColors buttonColors(const QPalette& palette) {
    constexpr double lightAccent = 2.5;
    QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    accent.setAlpha(255);
    if (contrastRatio(Qt::white, accent) < lightAccent)
        return {accent, Qt::black};
    while (contrastRatio(Qt::white, accent) < textContrast)
        accent = accent.darker(103);
    return {accent, Qt::white};
}

} // namespace

ProminentButton::ProminentButton(const QString& title, QWidget* parent)
    : QPushButton(title, parent) {
    setAttribute(Qt::WA_Hover);
    setDefault(true);
}

// Where the style shows by itself which button is the default, it does; most show it so faintly
// that nobody would call it prominent.
void ProminentButton::paintEvent(QPaintEvent* event) {
    if (!isEnabled() || style()->name() == "macos"_L1) {
        QPushButton::paintEvent(event);
        return;
    }
    const ButtonColors colors = buttonColors(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown()       ? colors.ground.darker(120)
                     : underMouse() ? colors.ground.darker(108)
                                    : colors.ground);
    painter.drawRoundedRect(frame, radius, radius);
    if (hasFocus()) { // a ring inside, which shows on whatever is around the button
        painter.setPen(QPen(colors.title, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame.adjusted(2, 2, -2, -2), radius - 1.5, radius - 1.5);
    }
    painter.setPen(colors.title);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace tarnwick
