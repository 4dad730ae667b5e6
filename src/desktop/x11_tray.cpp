// SPDX-License-Identifier: MIT
#include "desktop/x11_tray.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

/// The screen number at the end of the display's name, as in ":0.1".
QByteArray screenNumber() {
    const QByteArray display = qgetenv("DISPLAY");
    const qsizetype colon = display.lastIndexOf(':');
    const qsizetype dot = display.indexOf('.', colon);
    return colon < 0 || dot < 0 ? QByteArrayLiteral("0") : display.mid(dot + 1);
}

} // namespace

X11Tray::X11Tray() : library_(u"xcb"_s, 1) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Without a display Qt has the interface all the same, and no connection behind it.
    if (!x11 || !x11->connection() || !library_.load())
        return;
    connection_ = x11->connection();
    traySelection_ = atom("_NET_SYSTEM_TRAY_S" + screenNumber());
    managerMessage_ = atom("MANAGER");
    // A tray announces itself to the root window, whose messages Qt listens to.
    qGuiApp->installNativeEventFilter(this);
}

X11Tray::~X11Tray() {
    if (qGuiApp)
        qGuiApp->removeNativeEventFilter(this);
}

std::uint32_t X11Tray::atom(const QByteArray& name) {
    const auto ask =
        reinterpret_cast<decltype(&xcb_intern_atom)>(library_.resolve("xcb_intern_atom"));
    const auto answer = reinterpret_cast<decltype(&xcb_intern_atom_reply)>(
        library_.resolve("xcb_intern_atom_reply"));
    if (!ask || !answer)
        return XCB_ATOM_NONE;
    const Reply<xcb_intern_atom_reply_t> reply(answer(
        connection_, ask(connection_, 0, static_cast<std::uint16_t>(name.size()), name), nullptr));
    return reply ? reply->atom : std::uint32_t{XCB_ATOM_NONE};
}

bool X11Tray::exists() {
    if (!connection_ || traySelection_ == XCB_ATOM_NONE)
        return false;
    const auto ask = reinterpret_cast<decltype(&xcb_get_selection_owner)>(
        library_.resolve("xcb_get_selection_owner"));
    const auto answer = reinterpret_cast<decltype(&xcb_get_selection_owner_reply)>(
        library_.resolve("xcb_get_selection_owner_reply"));
    if (!ask || !answer)
        return false;
    const Reply<xcb_get_selection_owner_reply_t> reply(
        answer(connection_, ask(connection_, traySelection_), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool X11Tray::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    constexpr std::uint8_t sentBySomeProgram = 0x80; // set in an event's type by the X server
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~sentBySomeProgram) != XCB_CLIENT_MESSAGE)
        return false;
    const auto* announcement = static_cast<const xcb_client_message_event_t*>(message);
    if (announcement->type == managerMessage_ && announcement->data.data32[1] == traySelection_)
        Q_EMIT appeared();
    return false;
}

} // namespace tarnwick
