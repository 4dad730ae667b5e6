// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/styled_label.h"

namespace tarnwick {

/// One line of text, with an ellipsis where it does not fit and then all of it as a tooltip.
class ElidedLabel : public StyledLabel {
    Q_OBJECT

public:
    ElidedLabel(const TextLook& look, ThemeColor color, QWidget* parent);

    /// Where the ellipsis goes; at the end at first.
    void setElideMode(Qt::TextElideMode mode);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showContent() override;
    bool isCut() const override;

private:
    Qt::TextElideMode mode_ = Qt::ElideRight;
};

} // namespace tarnwick
