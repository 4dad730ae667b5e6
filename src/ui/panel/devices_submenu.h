// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/popover_row.h"
#include "ui/panel/panel_content.h"

namespace tarnwick {

/// The panel's entry for the other devices of the network, which lists them in a popover.
class DevicesSubmenu : public PopoverRow {
    Q_OBJECT

public:
    static constexpr int maximumListHeight = 300;

    explicit DevicesSubmenu(QWidget* parent);

    void setContent(const PanelContent::Devices& content);

    QSize sizeHint() const override;

    const ElidedLabel& count() const { return *count_; }

protected:
    void paintRow(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;
    PopoverList* makeList() override;
    void updateList(PopoverList& list) override;

private:
    void placeCount();
    QWidget* provideRow(QWidget* row, qsizetype index) const;

    PanelContent::Devices content_;
    ElidedLabel* count_;
};

} // namespace tarnwick
