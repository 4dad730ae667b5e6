// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/popover_row.h"
#include "ui/panel/panel_content.h"

namespace tarnwick {

/// A row that lists network profiles in a popover, to pick or to remove one.
class ProfilePickerRow : public PopoverRow {
    Q_OBJECT

public:
    static constexpr int maximumListHeight = 240;

    explicit ProfilePickerRow(QWidget* parent);

    void setContent(const PanelContent::ProfilePicker& content);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// A profile was picked; the popover is closed by then.
    void picked(const PanelCommand& call);
    /// A profile is to be removed; the popover is closed by then.
    void removed(const PanelCommand& call);

protected:
    void paintRow(QPainter& painter) override;
    PopoverList* makeList() override;
    void updateList(PopoverList& list) override;

private:
    QWidget* provideLine(QWidget* row, qsizetype index);

    PanelContent::ProfilePicker content_;
};

} // namespace tarnwick
