// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/styled_label.h"

namespace tarnwick {

/// One line of text that can be selected and copied with mouse or keyboard; elided in the middle.
class SelectableLabel : public StyledLabel {
    Q_OBJECT

public:
    SelectableLabel(const TextLook& look, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showContent() override;
    bool isCut() const override;

private:
    void elide();
    void copySelection() const;

    QString line_;
};

} // namespace tarnwick
