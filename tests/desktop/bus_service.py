# SPDX-License-Identifier: MIT
"""A service on a message bus that lives in the process of the test."""

import threading

from gi.repository import Gio, GLib

from virtual_desktop import TIME_LIMIT

CALL_LIMIT = int(TIME_LIMIT * 1000)  # milliseconds


class BusService:
    """One object under one name, on a connection and a thread of its own; close() is as if its
    process had ended. Subclasses set themselves up before they call __init__ here."""

    def __init__(self, bus_address, name, path, description):
        self._name, self._path = name, path
        self._interface = Gio.DBusNodeInfo.new_for_xml(description).interfaces[0]
        self._context = GLib.MainContext()
        self._loop = GLib.MainLoop(self._context)
        self._ready = threading.Event()
        self._thread = threading.Thread(target=self._run, args=(bus_address,), daemon=True)
        self._thread.start()
        if not self._ready.wait(TIME_LIMIT):
            raise TimeoutError(f"{name} did not start")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self._loop.quit()
        self._thread.join(TIME_LIMIT)

    def _run(self, bus_address):
        self._context.push_thread_default()
        flags = Gio.DBusConnectionFlags
        self._bus = Gio.DBusConnection.new_for_address_sync(
            bus_address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)
        self._bus.register_object(self._path, self._interface, self._call, self._property, None)
        self._call_bus("RequestName", GLib.Variant("(su)", (self._name, 0)))
        self._ready.set()
        self._loop.run()
        if not self._bus.is_closed():
            self._bus.close_sync(None)
        self._context.pop_thread_default()

    def _call_bus(self, method, arguments):
        return self._bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                   "org.freedesktop.DBus", method, arguments, None,
                                   Gio.DBusCallFlags.NONE, CALL_LIMIT, None).unpack()

    def _call(self, _connection, sender, _path, _interface, method, arguments, invocation):
        raise NotImplementedError

    def _property(self, _connection, _sender, _path, _interface, name):
        raise NotImplementedError
