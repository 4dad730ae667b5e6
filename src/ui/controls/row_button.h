// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

namespace tarnwick {

/// What the panel's controls have in common: no chrome, the whole rectangle to click on, Return
/// as well as Space, and a ring when the keyboard brought the focus here.
class RowButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit RowButton(QWidget* parent);

    bool isHovering() const { return isHovering_; }

    bool showsFocusRing() const { return showsFocusRing_ && hasFocus(); }

    /// Whether the row lies on highlighted ground.
    virtual bool isHighlighted() const { return false; }

protected:
    bool event(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    /// Paints symbol and texts; ground and ring are painted here.
    virtual void paintRow(QPainter& painter) = 0;

    /// A rectangle of a left-to-right layout, where it is in this one.
    QRect mirrored(const QRect& rect) const;

    /// Its text that may be elided, empty when it is shown in full.
    virtual QString tooltipText() const { return {}; }

private:
    void setHovering(bool hovering);

    bool isHovering_ = false;
    bool showsFocusRing_ = false;
};

} // namespace tarnwick
