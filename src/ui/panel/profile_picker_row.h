// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/popover_row.h"
#include "ui/panel/panel_content.h"

namespace tarnwick {

/// A row that opens a popover of network profiles, each of which can be picked or removed.
class ProfilePickerRow : public PopoverRow {
    Q_OBJECT

public:
    static constexpr int maximumListHeight = 240;

    ProfilePickerRow(PerformCommand perform, QWidget* parent);

    void setContent(const PanelContent::ProfilePicker& content);

    QSize sizeHint() const override;

protected:
    void paintRow(QPainter& painter) override;
    PopoverList* makeList() override;
    void updateList(PopoverList& list) override;

private:
    QWidget* provideLine(QWidget* row, qsizetype index);
    void closeAndPerform(const PanelCommand& command);

    PerformCommand perform_;
    PanelContent::ProfilePicker content_;
};

} // namespace tarnwick
