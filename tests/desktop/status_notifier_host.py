# SPDX-License-Identifier: MIT
"""A small status area of the newer kind: the registry of items and a host in one."""

import threading

from gi.repository import Gio, GLib

from bus_service import CALL_LIMIT, BusService
from virtual_desktop import TIME_LIMIT, wait_until

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
DESCRIPTION = f"""
<node><interface name="{WATCHER}">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
  <signal name="StatusNotifierHostUnregistered"/>
</interface></node>
"""


class StatusNotifierHost(BusService):
    def __init__(self, bus_address, has_host=True, answers=True):
        """One that does not answer hangs when it is asked for anything."""
        self.items = []  # (bus name, object path) of each registered icon
        self._has_host = has_host
        self._answers = threading.Event()
        if answers:
            self._answers.set()
        super().__init__(bus_address, WATCHER, "/StatusNotifierWatcher", DESCRIPTION)

    def _call(self, _connection, sender, _path, _interface, method, arguments, invocation):
        (text,) = arguments.unpack()
        if method == "RegisterStatusNotifierItem":
            # Either a bus name, or a path on the sender's connection.
            item = (sender, text) if text.startswith("/") else (text, "/StatusNotifierItem")
            self.items.append(item)
            self._emit("StatusNotifierItemRegistered", GLib.Variant("(s)", ("".join(item),)))
        invocation.return_value(None)

    def _property(self, _connection, _sender, _path, _interface, name):
        self._answers.wait()
        return {"RegisteredStatusNotifierItems":
                    GLib.Variant("as", ["".join(item) for item in self.items]),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", self._has_host),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]

    def _emit(self, signal, arguments=None):
        self._bus.emit_signal(None, "/StatusNotifierWatcher", WATCHER, signal, arguments)

    def add_host(self):
        """From now on icons are shown."""
        self._has_host = True
        self._emit("StatusNotifierHostRegistered")

    def remove_host(self):
        self._has_host = False
        self._emit("StatusNotifierHostUnregistered")

    def answer(self):
        """Ends the hanging."""
        self._answers.set()

    def close(self):
        self.answer()
        super().close()

    # What a host does with the icon that registered last.

    def wait_for_item(self, seconds=TIME_LIMIT):
        return wait_until(lambda: self.items and self.items[-1], "an icon", seconds)

    def is_item_there(self):
        """Whether the bus name under which it registered is still taken."""
        name, _ = self.wait_for_item()
        return self._call_bus("NameHasOwner", GLib.Variant("(s)", (name,)))[0]

    def _call_item(self, path, interface, method, arguments):
        name, _ = self.wait_for_item()
        reply = self._bus.call_sync(name, path, interface, method, arguments, None,
                                    Gio.DBusCallFlags.NONE, CALL_LIMIT, None)
        return reply.unpack()

    def property(self, name):
        _, path = self.wait_for_item()
        return self._call_item(path, "org.freedesktop.DBus.Properties", "Get",
                               GLib.Variant("(ss)", (ITEM, name)))[0]

    def activate(self, point=(0, 0)):
        """The click with the left button."""
        _, path = self.wait_for_item()
        self._call_item(path, ITEM, "Activate", GLib.Variant("(ii)", point))

    def call(self, method, signature, *arguments):
        """Any other call, also one that no host makes."""
        _, path = self.wait_for_item()
        return self._call_item(path, ITEM, method, GLib.Variant(signature, arguments))
