// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/styled_label.h"

namespace tarnwick {

/// Text wrapped over as many lines as it needs. Breaks words that are wider than a line.
class WrappedLabel : public StyledLabel {
    Q_OBJECT

public:
    WrappedLabel(const TextLook& look, ThemeColor color, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showContent() override;
    bool isCut() const override;
};

} // namespace tarnwick
