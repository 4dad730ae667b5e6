// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QWidget>

namespace tarnwick {

/// Base of the panel and its popovers: a window without a frame, with a background of any shape, in
/// which Tab and the arrow keys move the focus. Without a compositor the shape is cut out.
class FramelessWindow : public QWidget {
    Q_OBJECT

public:
    /// Qt::Tool and not Qt::Popup, which would close on an outside click by itself but is invisible
    /// to assistive technology. The system's shadow would be that of the rectangle.
    static constexpr Qt::WindowFlags flags =
        Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
    static constexpr int cornerRadius = 10; ///< Device-independent pixels.

    void setVisible(bool visible) override;

protected:
    explicit FramelessWindow(QWidget* parent);

    /// Sets the shape of the background, in window coordinates.
    void setOutline(const QPainterPath& outline);

    static QPainterPath roundedOutline(const QRectF& rect);

    /// Shows, raises and activates the window, with no control focused.
    void showInFront();

    /// Escape was pressed.
    virtual void escape() = 0;
    /// Another window is about to become active; which one is not known yet.
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
