// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/styled_label.h"

namespace tarnwick {

/// One line of text, elided if it does not fit; the tooltip then has all of it.
class ElidedLabel : public StyledLabel {
    Q_OBJECT

public:
    ElidedLabel(const TextLook& look, ThemeColor color, QWidget* parent);

    /// Position of the ellipsis, by default at the end.
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
