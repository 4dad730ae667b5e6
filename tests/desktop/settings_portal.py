# SPDX-License-Identifier: MIT
"""A stand-in for the settings portal, in a process of its own so that it can hang and die.

    settings_portal.py FILE    serves the settings in FILE, and announces what SIGHUP finds changed
"""

import json
import os
import pathlib
import signal
import sys

from gi.repository import Gio, GLib

from virtual_desktop import wait_until

SERVICE = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
DESCRIPTION = f"""
<node><interface name="{SETTINGS}">
  <method name="ReadAll">
    <arg type="as" direction="in"/><arg type="a{{sa{{sv}}}}" direction="out"/>
  </method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>
"""
APPEARANCE = "org.freedesktop.appearance"
GNOME = "org.gnome.desktop.interface"
READY = "serving"


class SettingsPortal:
    """One that a test starts on its desktop. Values are in GVariant's text format."""

    def __init__(self, desktop, *settings):
        self._file = desktop.directory / "portal-settings.json"
        self._write(settings)
        path = os.pathsep.join(filter(None, sys.path))
        self.process = desktop.start(sys.executable, "-B", __file__, self._file,
                                     environment={"PYTHONPATH": path})
        wait_until(lambda: READY in self.process.output(), "the portal",
                   describe=self.process.output)

    def _write(self, settings):
        """Each setting is (namespace, key, value)."""
        nested = {}
        for namespace, key, value in settings:
            nested.setdefault(namespace, {})[key] = value
        self._file.write_text(json.dumps(nested), encoding="utf-8")

    def change(self, *settings):
        self._write(settings)
        self.process.send_signal(signal.SIGHUP)

    def hang(self):
        self.process.send_signal(signal.SIGSTOP)

    def go_on(self):
        self.process.send_signal(signal.SIGCONT)

    def die(self):
        self.process.stop(signal.SIGKILL)


class Server:
    def __init__(self, file):
        self._file = pathlib.Path(file)
        self._settings = self._read()
        flags = Gio.BusNameOwnerFlags
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self._bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0],
                                  self._call, None, None)
        Gio.bus_own_name_on_connection(self._bus, SERVICE, flags.NONE,
                                       lambda *_: print(READY, flush=True), None)
        GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGHUP, self._announce_changes)

    def _read(self):
        nested = json.loads(self._file.read_text(encoding="utf-8"))
        return {namespace: {key: GLib.Variant.parse(None, value) for key, value in keys.items()}
                for namespace, keys in nested.items()}

    def _call(self, _connection, _sender, _path, _interface, _method, arguments, invocation):
        (wanted,) = arguments.unpack()
        answer = {namespace: keys for namespace, keys in self._settings.items()
                  if namespace in wanted}
        invocation.return_value(GLib.Variant("(a{sa{sv}})", (answer,)))

    def _announce_changes(self):
        before, self._settings = self._settings, self._read()
        for namespace, keys in self._settings.items():
            for key, value in keys.items():
                if value != before.get(namespace, {}).get(key):
                    self._bus.emit_signal(None, PATH, SETTINGS, "SettingChanged",
                                          GLib.Variant("(ssv)", (namespace, key, value)))
        return GLib.SOURCE_CONTINUE


def main():
    server = Server(sys.argv[1])
    assert server
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
