// SPDX-License-Identifier: MIT
#include "ui/remove_button.h"

#include "ui/colors.h"
#include "ui/row_painting.h"
#include "ui/symbol.h"

#include <QPainter>

namespace tarnwick {

using namespace Qt::StringLiterals;

RemoveButton::RemoveButton(QWidget* parent) : RowButton(parent) {
    setFixedSize(sideLength, sideLength);
    setAccessibleName(u"Remove profile"_s);
}

QString RemoveButton::tooltipText() const {
    return accessibleName();
}

void RemoveButton::paintRow(QPainter& painter) {
    paintSymbol(painter, rect(), u"trash"_s, symbolSize(TextStyle::Caption),
                themeColor(ThemeColor::Red, palette()));
}

} // namespace tarnwick
