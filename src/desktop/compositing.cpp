// SPDX-License-Identifier: MIT
#include "desktop/compositing.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QLibrary>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// The few calls of the X library that tell who owns the compositor's selection. Qt's X plug-in has
// the library loaded already; looking them up spares everyone else linking it.
struct XcbReply {
    std::uint8_t responseType;
    std::uint8_t padding;
    std::uint16_t sequence;
    std::uint32_t length;
    std::uint32_t value; // the atom, or the owner
};

struct XcbCookie {
    unsigned int sequence;
};

using InternAtom = XcbCookie (*)(void*, std::uint8_t, std::uint16_t, const char*);
using GetSelectionOwner = XcbCookie (*)(void*, std::uint32_t);
using GetReply = XcbReply* (*)(void*, XcbCookie, void**);

std::uint32_t replyValue(GetReply getReply, void* connection, XcbCookie cookie) {
    const std::unique_ptr<XcbReply, void (*)(void*)> reply(getReply(connection, cookie, nullptr),
                                                           std::free);
    return reply ? reply->value : 0;
}

bool hasCompositor(void* connection) {
    QLibrary xcb(u"xcb"_s, 1);
    const auto internAtom = reinterpret_cast<InternAtom>(xcb.resolve("xcb_intern_atom"));
    const auto atomReply = reinterpret_cast<GetReply>(xcb.resolve("xcb_intern_atom_reply"));
    const auto getOwner =
        reinterpret_cast<GetSelectionOwner>(xcb.resolve("xcb_get_selection_owner"));
    const auto ownerReply =
        reinterpret_cast<GetReply>(xcb.resolve("xcb_get_selection_owner_reply"));
    if (!internAtom || !atomReply || !getOwner || !ownerReply)
        return false;
    const QByteArray name = "_NET_WM_CM_S0"_ba;
    const std::uint32_t atom =
        replyValue(atomReply, connection,
                   internAtom(connection, 0, std::uint16_t(name.size()), name.constData()));
    return replyValue(ownerReply, connection, getOwner(connection, atom)) != 0;
}

} // namespace

bool isScreenComposited() {
    // Other platforms may implement the interface too, without a connection.
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    void* connection = x11 != nullptr ? x11->connection() : nullptr;
    return connection == nullptr || hasCompositor(connection);
}

} // namespace tarnwick
