// SPDX-License-Identifier: MIT
#include "desktop/x11_linux.h"

#include "desktop/xcb_functions_linux.h"

#include <QGuiApplication>
#include <QRegion>
#include <QScreen>

#include <algorithm>
#include <cstdlib>
#include <cstring>
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

constexpr std::uint8_t sentBySomeProgram = 0x80; // set in an event's type by the X server

/// The screen number at the end of the display's name, as in ":0.1".
QByteArray screenNumber() {
    const QByteArray display = qgetenv("DISPLAY");
    const qsizetype colon = display.lastIndexOf(':');
    const qsizetype dot = display.indexOf('.', colon);
    return colon < 0 || dot < 0 ? QByteArrayLiteral("0") : display.mid(dot + 1);
}

} // namespace

X11Display::X11Display() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Other platforms may have the interface too, with no connection behind it.
    if (!x11 || !x11->connection())
        return;
    connection_ = x11->connection();
    xcb_ = XcbFunctions::found();
}

std::uint32_t X11Display::atom(const QByteArray& name) {
    if (!xcb_)
        return XCB_ATOM_NONE;
    const auto request =
        xcb_->internAtom(connection_, 0, static_cast<std::uint16_t>(name.size()), name);
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_->internAtomReply(connection_, request, nullptr));
    return reply ? reply->atom : std::uint32_t{XCB_ATOM_NONE};
}

std::uint32_t X11Display::owner(std::uint32_t selection) {
    if (!xcb_ || selection == XCB_ATOM_NONE)
        return XCB_WINDOW_NONE;
    const auto request = xcb_->getSelectionOwner(connection_, selection);
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_->getSelectionOwnerReply(connection_, request, nullptr));
    return reply ? reply->owner : std::uint32_t{XCB_WINDOW_NONE};
}

QByteArray X11Display::property(std::uint32_t window, const QByteArray& name) {
    constexpr std::uint32_t longest = 16'384; // in units of four bytes
    const std::uint32_t property = atom(name);
    if (property == XCB_ATOM_NONE)
        return {};
    if (window == XCB_WINDOW_NONE)
        window = xcb_->setupRootsIterator(xcb_->getSetup(connection_)).data->root;
    const auto request =
        xcb_->getProperty(connection_, 0, window, property, XCB_ATOM_ANY, 0, longest);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_->getPropertyReply(connection_, request, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_->getPropertyValue(reply.get())),
            xcb_->getPropertyValueLength(reply.get())};
}

bool X11Display::hasResolutionOfTexts() {
    if (!xcb_)
        return false;
    // Where desktops put it since X resources exist, and where newer ones do.
    if (property(XCB_WINDOW_NONE, "RESOURCE_MANAGER").contains("Xft.dpi"))
        return true;
    const std::uint32_t settings = owner(atom("_XSETTINGS_S" + screenNumber()));
    return settings != XCB_WINDOW_NONE &&
           property(settings, "_XSETTINGS_SETTINGS").contains("Xft/DPI");
}

void X11Display::broadcast(const QByteArray& type, const QByteArray& text) {
    if (!xcb_)
        return;
    const xcb_screen_t& screen = *xcb_->setupRootsIterator(xcb_->getSetup(connection_)).data;
    // Listeners put the pieces together by the window that they are about.
    const std::uint32_t window = xcb_->generateId(connection_);
    xcb_->createWindow(connection_, XCB_COPY_FROM_PARENT, window, screen.root, -1, -1, 1, 1, 0,
                       XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_client_message_event_t piece{};
    piece.response_type = XCB_CLIENT_MESSAGE;
    piece.format = 8;
    piece.window = window;
    piece.type = atom(type + "_BEGIN");
    const std::uint32_t next = atom(type);
    constexpr qsizetype pieceSize = sizeof(piece.data.data8);
    for (qsizetype sent = 0; sent <= text.size(); sent += pieceSize) { // with the closing zero
        std::memset(piece.data.data8, 0, pieceSize);
        std::memcpy(piece.data.data8, text.constData() + sent,
                    static_cast<std::size_t>(std::min(pieceSize, text.size() - sent)));
        xcb_->sendEvent(connection_, 0, screen.root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                        reinterpret_cast<const char*>(&piece));
        piece.type = next;
    }
    xcb_->destroyWindow(connection_, window);
    xcb_->flush(connection_);
}

bool X11Display::isXwayland() {
    if (!xcb_)
        return false;
    // Older ones name their screens so and have no such extension.
    if (qGuiApp->primaryScreen()->name().startsWith("XWAYLAND"_L1))
        return true;
    const QByteArray extension("XWAYLAND");
    const auto request =
        xcb_->queryExtension(connection_, static_cast<std::uint16_t>(extension.size()), extension);
    const Reply<xcb_query_extension_reply_t> reply(
        xcb_->queryExtensionReply(connection_, request, nullptr));
    return reply && reply->present != 0;
}

std::uint8_t X11Display::watchSelection(std::uint32_t selection) {
    constexpr std::uint32_t newOwnerWindowGoneClientGone = 7;
    if (!xcb_ || !xcb_->selectSelectionInput || !xcb_->fixes)
        return 0;
    const xcb_query_extension_reply_t* extension = xcb_->getExtensionData(connection_, xcb_->fixes);
    if (!extension || extension->present == 0)
        return 0;
    const xcb_window_t root = xcb_->setupRootsIterator(xcb_->getSetup(connection_)).data->root;
    xcb_->selectSelectionInput(connection_, root, selection, newOwnerWindowGoneClientGone);
    return extension->first_event;
}

void X11Display::setInputRegion(std::uint32_t window, const QRegion& region) {
    constexpr std::uint8_t set = 0;
    constexpr std::uint8_t input = 2;
    if (!xcb_ || !xcb_->shapeRectangles)
        return;
    std::vector<xcb_rectangle_t> rects;
    for (const QRect& rect : region) {
        rects.push_back({static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
                         static_cast<std::uint16_t>(rect.width()),
                         static_cast<std::uint16_t>(rect.height())});
    }
    xcb_->shapeRectangles(connection_, set, input, XCB_CLIP_ORDERING_UNSORTED, window, 0, 0,
                          static_cast<std::uint32_t>(rects.size()), rects.data());
}

void X11Display::setProperty(std::uint32_t window, const QByteArray& name,
                             const std::vector<std::uint32_t>& values) {
    changeProperty(window, name, XCB_ATOM_CARDINAL, values);
}

void X11Display::setNames(std::uint32_t window, const QByteArray& name,
                          const std::vector<QByteArray>& values) {
    std::vector<std::uint32_t> atoms;
    atoms.reserve(values.size());
    for (const QByteArray& value : values)
        atoms.push_back(atom(value));
    changeProperty(window, name, XCB_ATOM_ATOM, atoms);
}

void X11Display::makeBackgroundTransparent(std::uint32_t window) {
    constexpr std::uint32_t transparent = 0;
    if (xcb_)
        xcb_->changeWindowAttributes(connection_, window, XCB_CW_BACK_PIXEL, &transparent);
}

void X11Display::changeProperty(std::uint32_t window, const QByteArray& name, std::uint32_t type,
                                const std::vector<std::uint32_t>& values) {
    constexpr std::uint8_t bits = 32;
    if (!xcb_)
        return;
    if (values.empty()) {
        xcb_->deleteProperty(connection_, window, atom(name));
        return;
    }
    xcb_->changeProperty(connection_, XCB_PROP_MODE_REPLACE, window, atom(name), type, bits,
                         static_cast<std::uint32_t>(values.size()), values.data());
}

void X11Display::sendMessage(std::uint32_t window, const QByteArray& type,
                             const std::array<std::uint32_t, 5>& values) {
    if (!xcb_)
        return;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    std::copy(values.begin(), values.end(), message.data.data32);
    xcb_->sendEvent(connection_, 0, window, XCB_EVENT_MASK_NO_EVENT,
                    reinterpret_cast<const char*>(&message));
    xcb_->flush(connection_);
}

X11Tray::X11Tray() {
    if (!display_.exists())
        return;
    traySelection_ = display_.atom("_NET_SYSTEM_TRAY_S" + screenNumber());
    managerMessage_ = display_.atom("MANAGER");
    // A tray announces itself to the root window, whose events Qt selects.
    qGuiApp->installNativeEventFilter(this);
}

X11Tray::~X11Tray() {
    if (qGuiApp)
        qGuiApp->removeNativeEventFilter(this);
}

bool X11Tray::exists() {
    return display_.hasOwner(traySelection_);
}

// Qt has given the window the properties by which a tray knows what to do with it.
void X11Tray::embed(std::uint32_t window) {
    constexpr std::uint32_t requestDock = 0;
    const std::uint32_t tray = display_.owner(traySelection_);
    if (tray != XCB_WINDOW_NONE)
        display_.sendMessage(tray, "_NET_SYSTEM_TRAY_OPCODE",
                             {XCB_CURRENT_TIME, requestDock, window, 0, 0});
}

bool X11Tray::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
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
