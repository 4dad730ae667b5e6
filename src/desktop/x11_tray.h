// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QByteArray>
#include <QLibrary>
#include <QObject>

#include <cstdint>

struct xcb_connection_t;

namespace tarnwick {

/// The older kind of status area: a window that owns a selection of the X display. Does nothing
/// where there is no X display.
///
/// Qt tells nobody of it before the first tray icon is made, which is too early. The X library is
/// the one that Qt's X plug-in has loaded; the program itself does not depend on it.
class X11Tray : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11Tray();
    ~X11Tray() override;
    X11Tray(const X11Tray&) = delete;
    X11Tray& operator=(const X11Tray&) = delete;

    /// Whether there is a tray now. Asks the X server.
    bool exists();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

Q_SIGNALS:
    /// A tray has announced itself.
    void appeared();

private:
    std::uint32_t atom(const QByteArray& name);

    QLibrary library_;
    xcb_connection_t* connection_ = nullptr;
    std::uint32_t traySelection_ = 0;
    std::uint32_t managerMessage_ = 0;
};

} // namespace tarnwick
