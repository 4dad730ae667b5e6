// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractSlider>

namespace tarnwick {

/// A thin scroll bar that lies over what it scrolls and takes no room from it.
class OverlayScrollBar : public QAbstractSlider {
    Q_OBJECT

public:
    static constexpr int barWidth = 10;

    /// Follows `source`, which stays hidden, and moves it.
    OverlayScrollBar(QAbstractSlider* source, QWidget* parent);

    QRect thumbRect() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void takeRange();

    QAbstractSlider* source_;
    int grabbedAt_ = 0; ///< Where in the thumb it was grabbed.
    bool isHovering_ = false;
};

} // namespace tarnwick
