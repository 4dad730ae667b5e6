// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/window_shadow.h"

#include <QMargins>
#include <QPainterPath>
#include <QWidget>

#include <memory>

namespace tarnwick {

/// Base of the panel and its popovers: a window without a frame, with a background of any shape, in
/// which Tab and the arrow keys move the focus. Without a compositor the shape is cut out; with one
/// the window has margins for a shadow, which are no part of it for users: they take no clicks, and
/// placement and assistive technology leave them out.
class FramelessWindow : public QWidget {
    Q_OBJECT

public:
    /// Qt::Tool and not Qt::Popup, which would close on an outside click by itself but is invisible
    /// to assistive technology. The system's shadow would be that of the rectangle.
    static constexpr Qt::WindowFlags flags =
        Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
    static constexpr int cornerRadius = 10; ///< Device-independent pixels.

    FramelessWindow(const FramelessWindow&) = delete;
    FramelessWindow& operator=(const FramelessWindow&) = delete;

    void setVisible(bool visible) override;

    /// The room around the visible part that the shadow takes.
    const QMargins& shadowMargins() const { return shadowMargins_; }

    /// The part without the shadow, in coordinates of the window and of the screen.
    QRect visibleRect() const { return rect().marginsRemoved(invisibleMargins()); }

    QRect visibleGeometry() const { return geometry().marginsRemoved(invisibleMargins()); }

    bool holdsShadow() const { return !shadow_.isReleased(); }

protected:
    explicit FramelessWindow(QWidget* parent);
    ~FramelessWindow() override;

    void setVisibleGeometry(const QRect& geometry);

    /// How much higher than the visible part a window with a shadow is made. Within that room its
    /// top comes and goes at once, where the window manager would resize it a frame too late.
    virtual int roomAbove(const QRect& /*geometry*/) const { return 0; }

    /// The visible part has another place in the window, whose size may be the same as before.
    virtual void visibleRectChanged() {}

    /// Sets the shape of the background and the part of it that throws the shadow, in coordinates
    /// of the visible part.
    void setOutline(const QPainterPath& outline, const QRect& body);

    /// Decides again whether there is a shadow. Its margins are added to the visible part, which
    /// stays where it is.
    void updateShadow();

    /// Whether the session shows a shadow that the window draws.
    virtual bool canHaveShadow() const;

    /// The margins have changed; the window is about to be resized.
    virtual void shadowMarginsChanged() {}

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
    void hideEvent(QHideEvent* event) override;

private:
    QMargins invisibleMargins() const { return shadowMargins_ + QMargins(0, roomAbove_, 0, 0); }

    void applyMask();
    void declareShape();

    QPainterPath outline_;
    QRect body_;
    WindowShadow shadow_;
    QMargins shadowMargins_;
    QPoint openedAt_;
    int roomAbove_ = 0;         ///< Between the shadow's margin and the visible part, now
    int declaredRoomAbove_ = 0; ///< and when the window was opened.
    std::unique_ptr<QObject> compositorWatch_; ///< While visible.
    bool isComposited_ = true;
    bool hasDeclaredShadow_ = false;
    bool isFirstFrame_ = false;
};

} // namespace tarnwick
