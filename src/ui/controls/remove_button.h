// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/row_button.h"

namespace tarnwick {

/// The trash can at the end of a profile's line.
class RemoveButton : public RowButton {
    Q_OBJECT

public:
    static constexpr int sideLength = 24; ///< Of the square to click on.

    explicit RemoveButton(QWidget* parent);

protected:
    void paintRow(QPainter& painter) override;
    QString tooltipText() const override;
};

} // namespace tarnwick
