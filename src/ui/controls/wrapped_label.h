// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/styled_label.h"

namespace tarnwick {

/// As many lines of text as it takes. A word that is wider than a line is broken too.
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
