// SPDX-License-Identifier: MIT
#include "ui/controls/divider.h"

#include "ui/style/colors.h"

#include <QPainter>

namespace tarnwick {

Divider::Divider(QWidget* parent) : QWidget(parent) {
    setFixedHeight(1);
}

void Divider::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), dividerColor(palette()));
}

} // namespace tarnwick
