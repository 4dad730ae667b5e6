# SPDX-License-Identifier: MIT
"""A desktop's notification service, which shows nothing and keeps what it was asked to show."""

from gi.repository import GLib

from bus_service import BusService

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
DESCRIPTION = f"""
<node><interface name="{NAME}">
  <method name="GetCapabilities"><arg type="as" direction="out"/></method>
  <method name="Notify">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
    <arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/>
    <arg type="u" direction="out"/>
  </method>
  <method name="CloseNotification"><arg type="u" direction="in"/></method>
</interface></node>
"""


class NotificationService(BusService):
    """One that `hangs` is there, and answers nothing."""

    def __init__(self, bus_address, capabilities=("body",), hangs=False):
        self.shown = {}  # the texts by their ids
        self.asked = []  # (method, arguments) of every call
        self._capabilities, self._hangs = list(capabilities), hangs
        self._last_id = 40
        self._unanswered = []
        super().__init__(bus_address, NAME, PATH, DESCRIPTION)

    def _call(self, _connection, _sender, _path, _interface, method, arguments, invocation):
        values = arguments.unpack()
        self.asked.append((method, values))
        if self._hangs:
            self._unanswered.append(invocation)
        elif method == "GetCapabilities":
            invocation.return_value(GLib.Variant("(as)", (self._capabilities,)))
        elif method == "Notify":
            replaced, body = values[1], values[4]
            self._last_id += 1
            number = replaced if replaced in self.shown else self._last_id
            self.shown[number] = body
            invocation.return_value(GLib.Variant("(u)", (number,)))
        else:
            self.shown.pop(values[0], None)
            invocation.return_value(None)

    @property
    def texts(self):
        """What the user sees now."""
        return list(self.shown.values())

    @property
    def notified(self):
        """Every text that was to be shown, in order."""
        return [values[4] for method, values in list(self.asked) if method == "Notify"]
