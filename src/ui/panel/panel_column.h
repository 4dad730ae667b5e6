// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/content_column.h"
#include "ui/panel/panel_content.h"

namespace tarnwick {

/// The sections of the panel, with dividers between them.
class PanelColumn : public ContentColumn {
    Q_OBJECT

public:
    PanelColumn(PerformCommand perform, QWidget* parent);

    void setContent(const PanelContent& content);

    /// Height of the contents at that width.
    int contentHeight(int width) const;

private:
    void addSection(const PanelContent::Section& section);

    PerformCommand perform_;
};

} // namespace tarnwick
