# SPDX-License-Identifier: MIT
"""GNOME Shell, on X and as a Wayland compositor."""

import time

from shell import COMMON, SIZE, NestedShell, Shell, XShell
from virtual_desktop import stays, wait_until

EXTENSION = "ubuntu-appindicators@ubuntu.com"


class Gnome(Shell):
    """What both have in common."""

    packages = ("gnome-shell gnome-shell-extension-appindicator gnome-session-bin "
                "gnome-settings-daemon xwayland xdg-desktop-portal-gnome "
                f"fonts-cantarell {COMMON}")
    variables = {"XDG_CURRENT_DESKTOP": "GNOME", "DESKTOP_SESSION": "gnome"}
    resting_spot = (440, 8)  # in the bar, since the client has a window over the desktop
    restarts = "the extension, as after a locked screen"

    def prepare(self):
        """Settings that a user of some weeks has, and what GNOME expects of the system."""
        self.start_log_in_manager()
        extensions = f"['{EXTENSION}']" if self.has_status_area else "[]"
        for key, value in (("enabled-extensions", extensions),
                           ("welcome-dialog-last-shown-version", "'999'")):
            self.run("gsettings", "set", "org.gnome.shell", key, value, check=True)

    def leave_overview(self):
        """A session without windows begins in the overview, sooner or later."""
        self.wait_for_name("--session", "org.gnome.Shell")

        def is_left():
            self.run("gdbus", "call", "--session", "--dest", "org.gnome.Shell", "--object-path",
                     "/org/gnome/Shell", "--method", "org.freedesktop.DBus.Properties.Set",
                     "org.gnome.Shell", "OverviewActive", "<false>")
            return "false" in self.run(
                "gdbus", "call", "--session", "--dest", "org.gnome.Shell", "--object-path",
                "/org/gnome/Shell", "--method", "org.freedesktop.DBus.Properties.Get",
                "org.gnome.Shell", "OverviewActive")

        wait_until(lambda: stays(is_left, 4.0, step=0.5), "the overview to close", 60, 0.5, self.describe)

    def restart(self):
        self.run("gnome-extensions", "disable", EXTENSION, check=True)
        wait_until(lambda: not self.has_host(), "the status area to go")
        time.sleep(2)  # nobody unlocks a screen at once
        self.run("gnome-extensions", "enable", EXTENSION, check=True)


class GnomeX11(Gnome, XShell):
    variables = {**Gnome.variables, **XShell.variables}
    restarts = "the shell"

    def start_shell(self):
        self.prepare()
        self._start_process()
        self.start("/usr/libexec/gsd-xsettings")
        if self.has_status_area:
            self.wait_for_status_area()

    def _start_process(self):
        self.shell = self.start("gnome-shell", "--x11")
        self.leave_overview()

    def restart(self):
        self.shell.stop()
        self._start_process()


class GnomeX11Plain(GnomeX11):
    has_status_area = False


class GnomeWayland(Gnome, NestedShell):
    variables = {**Gnome.variables, **NestedShell.variables,
                 "MUTTER_DEBUG_DUMMY_MODE_SPECS": "{}x{}".format(*SIZE)}

    def start_shell(self):
        self.prepare()
        displays = self.x_displays()
        self.shell = self.start("gnome-shell", "--nested", "--wayland", "--wayland-display=wayland-0")
        self.leave_overview()
        display = min(self.x_displays() - displays)  # the second one is for the shell's own programs
        (authority,) = self.runtime.glob(".mutter-Xwaylandauth.*")
        self.wait_for_displays({"WAYLAND_DISPLAY": "wayland-0", "DISPLAY": display,
                                "XAUTHORITY": str(authority)})
        self.wait_for_status_area()
