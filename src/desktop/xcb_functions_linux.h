// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <xcb/xcb.h>

namespace tarnwick {

/// Functions of the X library that Qt's X plug-in has loaded.
struct XcbFunctions {
    decltype(&xcb_intern_atom) internAtom = nullptr;
    decltype(&xcb_intern_atom_reply) internAtomReply = nullptr;
    decltype(&xcb_get_setup) getSetup = nullptr;
    decltype(&xcb_setup_roots_iterator) setupRootsIterator = nullptr;
    decltype(&xcb_generate_id) generateId = nullptr;
    decltype(&xcb_create_window) createWindow = nullptr;
    decltype(&xcb_destroy_window) destroyWindow = nullptr;
    decltype(&xcb_send_event) sendEvent = nullptr;
    decltype(&xcb_flush) flush = nullptr;
    decltype(&xcb_query_extension) queryExtension = nullptr;
    decltype(&xcb_query_extension_reply) queryExtensionReply = nullptr;
    decltype(&xcb_get_selection_owner) getSelectionOwner = nullptr;
    decltype(&xcb_get_selection_owner_reply) getSelectionOwnerReply = nullptr;
    decltype(&xcb_get_property) getProperty = nullptr;
    decltype(&xcb_get_property_reply) getPropertyReply = nullptr;
    decltype(&xcb_get_property_value) getPropertyValue = nullptr;
    decltype(&xcb_get_property_value_length) getPropertyValueLength = nullptr;
    decltype(&xcb_change_property) changeProperty = nullptr;
    decltype(&xcb_delete_property) deleteProperty = nullptr;
    decltype(&xcb_change_window_attributes) changeWindowAttributes = nullptr;
    decltype(&xcb_get_extension_data) getExtensionData = nullptr;

    // Of the extensions Shape and XFixes, whose headers are not needed to build Qt programs. Qt
    // uses both; null if it does not.
    xcb_void_cookie_t (*shapeRectangles)(xcb_connection_t*, std::uint8_t operation,
                                         std::uint8_t kind, std::uint8_t ordering, xcb_window_t,
                                         std::int16_t x, std::int16_t y, std::uint32_t count,
                                         const xcb_rectangle_t*) = nullptr;
    xcb_void_cookie_t (*selectSelectionInput)(xcb_connection_t*, xcb_window_t, xcb_atom_t,
                                              std::uint32_t events) = nullptr;
    xcb_extension_t* fixes = nullptr;

    /// What was found, looked up once a process: it does not change while Qt's plug-in is loaded.
    /// Null unless all of the core protocol were.
    static const XcbFunctions* found();

private:
    bool resolve();
};

} // namespace tarnwick
