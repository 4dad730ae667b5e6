// SPDX-License-Identifier: MIT
#include "ui/panel/profile_picker_row.h"

#include "ui/panel/profile_row.h"
#include "ui/style/row_painting.h"

#include <QPainter>

#include <utility>

namespace tarnwick {

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
    return new PopoverList(maximumListHeight, [this](QWidget* row, qsizetype index) {
        return provideLine(row, index);
    });
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
