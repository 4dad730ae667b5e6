// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractSlider>
#include <QScrollArea>

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

/// A vertical scroll area without frame or ground whose contents have its whole width. The arrow
/// keys scroll it while it has the focus itself; else they are left to the window.
class OverlayScrollArea : public QScrollArea {
    Q_OBJECT

public:
    explicit OverlayScrollArea(QWidget* parent);

    /// Scrolls `contents`, which it takes over and makes as wide as itself.
    void setContents(QWidget* contents);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    OverlayScrollBar* bar_;
};

} // namespace tarnwick
