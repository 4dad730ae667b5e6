// SPDX-License-Identifier: MIT
#include "ui/panel/menu_button.h"

#include "ui/style/row_painting.h"

#include <QPainter>

#include <utility>

namespace tarnwick {

namespace {

constexpr RowGeometry buttonGrid{.look = {TextStyle::Body}, .verticalPadding = 6};

} // namespace

MenuButton::MenuButton(PerformCommand perform, QWidget* parent)
    : RowButton(parent), perform_(std::move(perform)) {
    QObject::connect(this, &QAbstractButton::clicked, this, [this] { perform_(content_.command); });
}

void MenuButton::setContent(const PanelContent::Button& content) {
    if (content == content_)
        return;
    content_ = content;
    setAccessibleName(content_.title);
    updateGeometry();
    update();
}

QSize MenuButton::sizeHint() const {
    return {0, buttonGrid.rowHeight()};
}

void MenuButton::paintRow(QPainter& painter) {
    buttonGrid.paintSymbolAndTitle(painter, *this, content_.symbol, content_.title,
                                   buttonGrid.textRect(rect()));
}

} // namespace tarnwick
