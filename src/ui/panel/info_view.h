// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/styled_label.h"
#include "ui/panel/panel_content.h"

#include <QVBoxLayout>
#include <QWidget>

namespace tarnwick {

/// Labels at the left and this machine's values at the right, one a line.
class InfoView : public QWidget {
    Q_OBJECT

public:
    explicit InfoView(QWidget* parent);

    void setContent(const PanelContent::Info& content);

    const StyledLabel& value(qsizetype row) const { return *values_[row]; }

private:
    void makeRow(const PanelContent::InfoRow& row);

    QVBoxLayout* column_;
    QList<PanelContent::InfoRow> rows_;
    QList<StyledLabel*> values_;
};

} // namespace tarnwick
