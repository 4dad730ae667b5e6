// SPDX-License-Identifier: MIT
#include "ui/controls/symbol_view.h"

#include "ui/style/row_painting.h"
#include "ui/style/symbol.h"

#include <QPainter>

namespace tarnwick {

SymbolView::SymbolView(TextStyle style, QWidget* parent) : QWidget(parent), style_(style) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbol(const QString& name, ThemeColor color) {
    name_ = name;
    color_ = color;
    update();
}

QSize SymbolView::sizeHint() const {
    return {symbolSize(style_), symbolSize(style_)};
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSymbol(painter, rect(), name_, symbolSize(style_), themeColor(color_, palette()));
}

} // namespace tarnwick
