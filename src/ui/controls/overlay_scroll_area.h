// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractSlider>
#include <QScrollArea>

namespace tarnwick {

/// A thin scroll bar drawn over the content it scrolls, so that it takes no room.
class OverlayScrollBar : public QAbstractSlider {
    Q_OBJECT

public:
    static constexpr int barWidth = 10;

    /// Mirrors `source`, the area's own scroll bar, which stays hidden.
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
    int grabbedAt_ = 0; ///< Offset of the grab from the top of the thumb.
    bool isHovering_ = false;
};

/// A vertical scroll area without frame or background; the contents have its full width. Arrow
/// keys scroll only while the area itself has the focus; otherwise they move the window's focus.
class OverlayScrollArea : public QScrollArea {
    Q_OBJECT

public:
    explicit OverlayScrollArea(QWidget* parent);

    /// Takes ownership of `contents`.
    void setContents(QWidget* contents);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    OverlayScrollBar* bar_;
};

} // namespace tarnwick
