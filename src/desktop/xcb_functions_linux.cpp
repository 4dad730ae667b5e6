// SPDX-License-Identifier: MIT
#include "desktop/xcb_functions_linux.h"

#include <QLibrary>

#include <optional>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

template <typename Symbol>
bool findIn(QLibrary& library, Symbol& symbol, const char* name) {
    symbol = reinterpret_cast<Symbol>(library.resolve(name));
    return symbol != nullptr;
}

} // namespace

const XcbFunctions* XcbFunctions::found() {
    static const std::optional<XcbFunctions> functions = [] {
        XcbFunctions looked;
        return looked.resolve() ? std::optional(looked) : std::nullopt;
    }();
    return functions ? &*functions : nullptr;
}

bool XcbFunctions::resolve() {
    QLibrary library(u"xcb"_s, 1);
    QLibrary shape(u"xcb-shape"_s, 0);
    QLibrary fixesLibrary(u"xcb-xfixes"_s, 0);
    findIn(shape, shapeRectangles, "xcb_shape_rectangles");
    findIn(fixesLibrary, selectSelectionInput, "xcb_xfixes_select_selection_input");
    findIn(fixesLibrary, fixes, "xcb_xfixes_id");
    const auto find = [&library](auto& function, const char* name) {
        return findIn(library, function, name);
    };
    return find(internAtom, "xcb_intern_atom") && find(internAtomReply, "xcb_intern_atom_reply") &&
           find(getSetup, "xcb_get_setup") &&
           find(setupRootsIterator, "xcb_setup_roots_iterator") &&
           find(generateId, "xcb_generate_id") && find(createWindow, "xcb_create_window") &&
           find(destroyWindow, "xcb_destroy_window") && find(sendEvent, "xcb_send_event") &&
           find(flush, "xcb_flush") && find(queryExtension, "xcb_query_extension") &&
           find(queryExtensionReply, "xcb_query_extension_reply") &&
           find(changeProperty, "xcb_change_property") &&
           find(deleteProperty, "xcb_delete_property") &&
           find(changeWindowAttributes, "xcb_change_window_attributes") &&
           find(getExtensionData, "xcb_get_extension_data") &&
           find(getSelectionOwner, "xcb_get_selection_owner") &&
           find(getSelectionOwnerReply, "xcb_get_selection_owner_reply") &&
           find(getProperty, "xcb_get_property") &&
           find(getPropertyReply, "xcb_get_property_reply") &&
           find(getPropertyValue, "xcb_get_property_value") &&
           find(getPropertyValueLength, "xcb_get_property_value_length");
}

} // namespace tarnwick
