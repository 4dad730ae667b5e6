// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QWidget>

namespace tarnwick {

/// What the panel and its popovers share: a window without a frame whose background has a shape of
/// its own, in which Tab and the arrow keys move the focus.
///
/// Where the screen is composited its corners are smooth; where not, they are cut out.
class FramelessWindow : public QWidget {
    Q_OBJECT

public:
    /// A Qt::Popup would close on a click elsewhere by itself, but assistive technology does not
    /// see one. The system's shadow would be that of the rectangle.
    static constexpr Qt::WindowFlags flags =
        Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;

    void setVisible(bool visible) override;

protected:
    explicit FramelessWindow(QWidget* parent);

    /// Takes over the window's new outline, in its coordinates.
    void setOutline(const QPainterPath& outline);

    static QPainterPath roundedOutline(const QRectF& rect);

    /// Shows the window in front of the others and active. No control has the focus at first.
    void showInFront();

    /// Escape was pressed.
    virtual void escape() = 0;
    /// The visible window is not active any longer. Which one is instead is not known yet.
    virtual void deactivated() = 0;

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void applyMask();

    QPainterPath outline_;
    bool isComposited_ = true;
};

} // namespace tarnwick
