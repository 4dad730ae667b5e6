// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/labels.h"

#include <QScrollArea>

namespace tarnwick {

/// A text as high as it needs that scrolls where there is less room, with the keyboard too: it
/// accepts the focus while a part of it is not visible.
class ScrollingText : public QScrollArea {
    Q_OBJECT

public:
    ScrollingText(const TextLook& look, ThemeColor color, QWidget* parent = nullptr);

    void setText(const QString& text);

    const QString& text() const { return label_->content(); }

    /// Device-independent pixels.
    void setMaximumTextHeight(int height);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    WrappedLabel* label_;
    int maximumTextHeight_ = QWIDGETSIZE_MAX;
};

} // namespace tarnwick
