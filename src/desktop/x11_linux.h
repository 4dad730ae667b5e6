// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QByteArray>
#include <QObject>

#include <array>
#include <cstdint>
#include <vector>

class QRegion;
struct xcb_connection_t;

namespace tarnwick {

struct XcbFunctions;

/// The X display that Qt is connected to, for requests that Qt has no function for. Where Qt uses
/// another platform it does not exist, and every query finds nothing.
///
/// Uses the X library that Qt's X plug-in has loaded, so that the program does not link it.
class X11Display {
public:
    X11Display();

    bool exists() const { return xcb_ != nullptr; }

    std::uint32_t atom(const QByteArray& name);

    /// The window that owns the selection; 0 for none.
    std::uint32_t owner(std::uint32_t selection);

    bool hasOwner(std::uint32_t selection) { return owner(selection) != 0; }

    /// Sends a message to the client that made `window`.
    void sendMessage(std::uint32_t window, const QByteArray& type,
                     const std::array<std::uint32_t, 5>& values);

    /// Whether the session gives its texts a resolution, by which Qt scales everything.
    bool hasResolutionOfTexts();

    /// Sends a text to all that listen on the root window, in pieces: first a message of type
    /// `type` with "_BEGIN", then as many as it takes of `type`.
    void broadcast(const QByteArray& type, const QByteArray& text);

    /// Whether the X server draws into a Wayland compositor's windows and sees only what happens
    /// over X windows.
    bool isXwayland();

    /// Has an event sent whenever that selection gets an owner or loses it. Returns the event's
    /// type, 0 if the server offers no such events.
    std::uint8_t watchSelection(std::uint32_t selection);

    /// The part of a window that takes clicks, in device pixels.
    void setInputRegion(std::uint32_t window, const QRegion& region);

    /// Sets a property of numbers, such as "_GTK_FRAME_EXTENTS"; without numbers removes it.
    void setProperty(std::uint32_t window, const QByteArray& name,
                     const std::vector<std::uint32_t>& values);

    /// Sets a property of names, such as "_NET_WM_STATE"; without names removes it.
    void setNames(std::uint32_t window, const QByteArray& name,
                  const std::vector<QByteArray>& values);

    /// Makes transparent what a window with an alpha channel does not paint.
    void makeBackgroundTransparent(std::uint32_t window);

private:
    void changeProperty(std::uint32_t window, const QByteArray& name, std::uint32_t type,
                        const std::vector<std::uint32_t>& values);

    /// The beginning of that property of the window, or of the root window for none.
    QByteArray property(std::uint32_t window, const QByteArray& name);

    xcb_connection_t* connection_ = nullptr;
    const XcbFunctions* xcb_ = nullptr; ///< Null where Qt uses another platform.
};

/// The older kind of status area: a window that owns a selection of the X display. Qt reports it
/// only after the first tray icon has been made, which must not be before there is one.
class X11Tray : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11Tray();
    ~X11Tray() override;
    X11Tray(const X11Tray&) = delete;
    X11Tray& operator=(const X11Tray&) = delete;

    /// Whether there is a tray now. A round trip to the X server.
    bool exists();

    /// Asks the tray that there is now to show that window, which Qt has made.
    void embed(std::uint32_t window);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

Q_SIGNALS:
    /// A tray has announced itself.
    void appeared();

private:
    X11Display display_;
    std::uint32_t traySelection_ = 0;
    std::uint32_t managerMessage_ = 0;
};

} // namespace tarnwick
