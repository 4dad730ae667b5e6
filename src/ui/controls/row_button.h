// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace tarnwick {

/// Base of the panel's controls: no frame, the whole rectangle is clickable, Return presses like
/// Space, and a ring shows the focus if the keyboard moved it.
class RowButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit RowButton(QWidget* parent);

    bool isHovering() const { return isHovering_; }

    bool showsFocusRing() const { return showsFocusRing_ && hasFocus(); }

    /// Whether the row has a highlighted background.
    virtual bool isHighlighted() const { return false; }

protected:
    bool event(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    /// Paints the symbol and texts, between background and focus ring.
    virtual void paintRow(QPainter& painter) = 0;

    /// Maps a rectangle of a left-to-right layout to the current layout direction.
    QRect mirrored(const QRect& rect) const;

    /// Empty for no tooltip.
    virtual QString tooltipText() const { return {}; }

private:
    void setHovering(bool hovering);

    bool isHovering_ = false;
    bool showsFocusRing_ = false;
};

} // namespace tarnwick
