// SPDX-License-Identifier: MIT
#include "ui/panel/devices_submenu.h"

#include "ui/panel/device_row.h"
#include "ui/style/row_geometry.h"
#include "ui/style/row_painting.h"

#include <QPainter>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr RowGeometry grid{.look = {TextStyle::Caption}, .verticalPadding = 8};

}

DevicesSubmenu::DevicesSubmenu(QWidget* parent)
    : PopoverRow(parent), count_(new ElidedLabel(grid.look, ThemeColor::Secondary, this)) {
    count_->setAttribute(Qt::WA_TransparentForMouseEvents); // the whole row is to be clicked on
}

void DevicesSubmenu::setContent(const PanelContent::Devices& content) {
    if (content == content_)
        return;
    content_ = content;
    setAccessibleName(content_.title);
    setAccessibleDescription(content_.count);
    count_->setContent(content_.count);
    placeCount();
    contentChanged();
}

QSize DevicesSubmenu::sizeHint() const {
    return {0, grid.rowHeight()};
}

void DevicesSubmenu::placeCount() {
    const QRect texts = grid.textRectBeforeChevron(rect());
    const int titleWidth = textAdvance(grid.look.font(), content_.title);
    const int left = texts.left() + titleWidth + RowGeometry::gap;
    const int width = std::min(count_->sizeHint().width(), texts.right() + 1 - left);
    const int height = count_->sizeHint().height();
    count_->setGeometry(mirrored({left, (this->height() - height) / 2, width, height}));
}

void DevicesSubmenu::resizeEvent(QResizeEvent* event) {
    PopoverRow::resizeEvent(event);
    placeCount();
}

void DevicesSubmenu::paintRow(QPainter& painter) {
    grid.paintSymbolAndTitle(painter, *this, u"desktopcomputer"_s, content_.title,
                             grid.textRectBeforeChevron(rect()));
    grid.paintChevron(painter, *this);
}

PopoverList* DevicesSubmenu::makeList() {
    auto* list = new PopoverList(maximumListHeight, [this](QWidget* row, qsizetype index) {
        return provideRow(row, index);
    });
    list->scrollArea()->setFocusPolicy(Qt::StrongFocus); // nothing else in it takes the arrow keys
    return list;
}

void DevicesSubmenu::updateList(PopoverList& list) {
    QStringList keys;
    keys.reserve(content_.devices.size());
    for (const PanelContent::Device& device : std::as_const(content_.devices))
        keys.append(device.key);
    list.setContent(content_.title, keys);
}

QWidget* DevicesSubmenu::provideRow(QWidget* row, qsizetype index) const {
    const PanelContent::Device& device = content_.devices[index];
    if (row == nullptr)
        return new DeviceRow(device);
    static_cast<DeviceRow*>(row)->setDevice(device);
    return row;
}

} // namespace tarnwick
