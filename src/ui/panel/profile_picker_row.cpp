// SPDX-License-Identifier: MIT
#include "ui/panel/profile_picker_row.h"

#include "ui/style/colors.h"
#include "ui/style/row_painting.h"
#include "ui/style/symbol.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int markGap = 8;

constexpr int linePadding = 6;
constexpr int removeGap = 6;

} // namespace

RemoveButton::RemoveButton(QWidget* parent) : RowButton(parent) {
    setFixedSize(sideLength, sideLength);
    setAccessibleName(u"Remove profile"_s);
}

QString RemoveButton::tooltipText() const {
    return accessibleName();
}

void RemoveButton::paintRow(QPainter& painter) {
    paintSymbol(painter, rect(), u"trash"_s, symbolSize(TextStyle::Caption),
                shapeColor(ThemeColor::Red, palette()));
}

ProfileButton::ProfileButton(QWidget* parent)
    : RowButton(parent),
      title_(new ElidedLabel({TextStyle::Caption, TextWeight::Medium}, ThemeColor::Label, this)),
      subtitle_(new ElidedLabel({TextStyle::Caption2}, ThemeColor::Secondary, this)) {
    for (QWidget* label : {title_, subtitle_})
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ProfileButton::setProfile(const PanelContent::Profile& profile) {
    markSymbol_ = profile.isSelected ? u"checkmark.circle.fill"_s : u"circle"_s;
    markColor_ = profile.isSelected ? ThemeColor::Green : ThemeColor::Secondary;
    title_->setContent(profile.title);
    subtitle_->setLook({TextStyle::Caption2, TextWeight::Natural, profile.subtitleDesign});
    subtitle_->setContent(profile.subtitle);
    setAccessibleName(title_->text());
    setAccessibleDescription(subtitle_->text());
    update();
}

void ProfileButton::setReservedWidth(int width) {
    reservedWidth_ = width;
    placeTexts();
}

QString ProfileButton::tooltipText() const {
    const auto isCut = [](const ElidedLabel& label) {
        return label.sizeHint().width() > label.width() ||
               label.text().size() < label.content().size();
    };
    if (!isCut(*title_) && !isCut(*subtitle_))
        return {};
    return title_->content() + u'\n' + subtitle_->content();
}

void ProfileButton::placeTexts() {
    const int left = horizontalPadding + symbolColumnWidth() + markGap;
    const int textWidth = width() - left - horizontalPadding - reservedWidth_;
    const int titleHeight = title_->sizeHint().height();
    const int subtitleHeight = subtitle_->sizeHint().height();
    const int top = (height() - titleHeight - lineGap - subtitleHeight) / 2;
    title_->setGeometry(mirrored({left, top, textWidth, titleHeight}));
    subtitle_->setGeometry(
        mirrored({left, top + titleHeight + lineGap, textWidth, subtitleHeight}));
}

void ProfileButton::resizeEvent(QResizeEvent* event) {
    RowButton::resizeEvent(event);
    placeTexts();
}

void ProfileButton::paintRow(QPainter& painter) {
    const QRect mark(horizontalPadding, 0, symbolColumnWidth(), height());
    paintSymbol(painter, mirrored(mark), markSymbol_, symbolSize(TextStyle::Body),
                shapeColor(markColor_, palette()));
}

ProfileRow::ProfileRow(PerformCommand perform, QWidget* parent)
    : QWidget(parent), perform_(std::move(perform)), pick_(new ProfileButton(this)),
      remove_(new RemoveButton(this)) {
    QObject::connect(pick_, &QAbstractButton::clicked, this, [this] { perform_(profile_.pick); });
    QObject::connect(remove_, &QAbstractButton::clicked, this, [this] {
        if (profile_.remove)
            perform_(*profile_.remove);
    });
}

void ProfileRow::setProfile(const PanelContent::Profile& profile) {
    profile_ = profile;
    pick_->setProfile(profile_);
    pick_->setReservedWidth(profile_.remove ? RemoveButton::sideLength + removeGap : 0);
    remove_->setVisible(profile_.remove.has_value());
    remove_->setAccessibleDescription(pick_->accessibleName());
}

QSize ProfileRow::sizeHint() const {
    const int texts = pick_->title().sizeHint().height() + ProfileButton::lineGap +
                      pick_->subtitle().sizeHint().height();
    return {0, std::max(texts, RemoveButton::sideLength) + 2 * linePadding};
}

void ProfileRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    pick_->setGeometry(rect());
    const QRect trash(width() - ProfileButton::horizontalPadding - RemoveButton::sideLength,
                      (height() - RemoveButton::sideLength) / 2, RemoveButton::sideLength,
                      RemoveButton::sideLength);
    remove_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), trash));
    remove_->raise();
}

namespace {

constexpr RowGeometry pickerGrid{.look = {TextStyle::Body}, .verticalPadding = 6};

}

ProfilePickerRow::ProfilePickerRow(PerformCommand perform, QWidget* parent)
    : PopoverRow(parent), perform_(std::move(perform)) {}

void ProfilePickerRow::setContent(const PanelContent::ProfilePicker& content) {
    if (content == content_)
        return;
    content_ = content;
    setAccessibleName(content_.title);
    contentChanged();
}

QSize ProfilePickerRow::sizeHint() const {
    return {0, pickerGrid.rowHeight()};
}

void ProfilePickerRow::paintRow(QPainter& painter) {
    pickerGrid.paintSymbolAndTitle(painter, *this, content_.symbol, content_.title,
                                   pickerGrid.textRectBeforeChevron(rect()));
    pickerGrid.paintChevron(painter, *this);
}

PopoverList* ProfilePickerRow::makeList() {
    return new PopoverList(
        maximumListHeight, RowList::OutOfSight::Made,
        [this](QWidget* row, qsizetype index) { return provideLine(row, index); });
}

void ProfilePickerRow::updateList(PopoverList& list) {
    QStringList keys;
    for (const PanelContent::Profile& profile : std::as_const(content_.profiles))
        keys.append(profile.key);
    list.setContent(content_.title, keys);
}

QWidget* ProfilePickerRow::provideLine(QWidget* row, qsizetype index) {
    auto* line = static_cast<ProfileRow*>(row);
    if (line == nullptr)
        line = new ProfileRow([this](const PanelCommand& command) { closeAndPerform(command); });
    line->setProfile(content_.profiles[index]);
    return line;
}

void ProfilePickerRow::closeAndPerform(const PanelCommand& command) {
    setPopoverPresented(false);
    perform_(command);
}

} // namespace tarnwick
