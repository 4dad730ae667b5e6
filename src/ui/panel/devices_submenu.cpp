// SPDX-License-Identifier: MIT
#include "ui/panel/devices_submenu.h"

#include "ui/style/row_painting.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int horizontalPadding = 16;
constexpr int verticalPadding = 4;
constexpr int gap = 8;
constexpr int lineGap = 1;
constexpr TextLook nameLook{TextStyle::Caption, TextWeight::Medium};
constexpr TextLook addressLook{TextStyle::Caption2, TextWeight::Natural, TextDesign::Monospaced};
constexpr TextLook osLook{TextStyle::Caption2};

constexpr RowGeometry grid{.look = {TextStyle::Caption}, .verticalPadding = 8};

} // namespace

DeviceRow::DeviceRow(PanelContent::Device device, QWidget* parent)
    : QWidget(parent), device_(std::move(device)),
      name_(new ElidedLabel(nameLook, ThemeColor::Label, this)),
      address_(new ElidedLabel(addressLook, ThemeColor::Secondary, this)),
      os_(new ElidedLabel(osLook, ThemeColor::Secondary, this)) {
    address_->setElideMode(Qt::ElideMiddle);
    showDevice();
}

void DeviceRow::setDevice(const PanelContent::Device& device) {
    if (device == device_)
        return;
    device_ = device;
    showDevice();
    placeTexts();
    update();
}

void DeviceRow::showDevice() {
    name_->setContent(device_.name);
    address_->setContent(device_.address);
    os_->setContent(device_.os);
    // What the dot shows, for assistive technology.
    setAccessibleDescription(device_.isOnline ? u"Online"_s : u"Offline"_s);
}

QSize DeviceRow::sizeHint() const {
    return {0, name_->sizeHint().height() + lineGap + address_->sizeHint().height() +
                   2 * verticalPadding};
}

QRect DeviceRow::dotRect() const {
    const QRect dot(horizontalPadding, (height() - dotSize) / 2, dotSize, dotSize);
    return QStyle::visualRect(layoutDirection(), rect(), dot);
}

QColor DeviceRow::dotColor() const {
    return device_.isOnline ? shapeColor(ThemeColor::Green, palette()) : offlineDotColor();
}

void DeviceRow::placeTexts() {
    const QRect inner = rect().adjusted(horizontalPadding + dotSize + gap, verticalPadding,
                                        -horizontalPadding, -verticalPadding);
    const int osWidth = std::min(os_->sizeHint().width(), inner.width() / 3);
    const int textWidth = inner.width() - (osWidth > 0 ? osWidth + gap : 0);
    const int nameHeight = name_->sizeHint().height();
    const int addressHeight = address_->sizeHint().height();
    const auto place = [this](QWidget* label, const QRect& where) {
        label->setGeometry(QStyle::visualRect(layoutDirection(), rect(), where));
    };
    place(name_, {inner.left(), inner.top(), textWidth, nameHeight});
    place(address_, {inner.left(), inner.top() + nameHeight + lineGap, textWidth, addressHeight});
    place(os_, {inner.right() + 1 - osWidth, inner.top(), osWidth, inner.height()});
}

void DeviceRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeTexts();
}

void DeviceRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(dotColor());
    painter.drawEllipse(dotRect());
}

DevicesSubmenu::DevicesSubmenu(QWidget* parent)
    : PopoverRow(parent), count_(new ElidedLabel(grid.look, ThemeColor::Secondary, this)) {
    count_->setAttribute(Qt::WA_TransparentForMouseEvents); // clicks are the row's
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
    // As high as the row, so that it is centred as the title is and shares its baseline.
    count_->setGeometry(mirrored({left, 0, width, height()}));
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
    auto* list =
        new PopoverList(maximumListHeight, RowList::OutOfSight::Reused,
                        [this](QWidget* row, qsizetype index) { return provideRow(row, index); });
    list->scrollArea()->setFocusPolicy(
        Qt::StrongFocus); // to scroll with the arrow keys: the rows accept no focus
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
