// SPDX-License-Identifier: MIT
#include "ui/controls/remove_button.h"

#include "ui/style/colors.h"
#include "ui/style/row_painting.h"
#include "ui/style/symbol.h"

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
