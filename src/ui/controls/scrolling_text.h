// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/wrapped_label.h"

#include <QScrollArea>

namespace tarnwick {

/// A text that is as high as it needs and, where there is less room, scrolls. Scrolls with the
/// keyboard too: it takes the focus while a part of it is out of sight.
class ScrollingText : public QScrollArea {
    Q_OBJECT

public:
    ScrollingText(const TextLook& look, ThemeColor color, QWidget* parent = nullptr);

    void setText(const QString& text);

    /// As it was set.
    const QString& text() const { return label_->content(); }

    /// How high it gets at most, in device-independent pixels.
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
