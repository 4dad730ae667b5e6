# SPDX-License-Identifier: MIT
"""A real desktop shell on a virtual display."""

import os
import pathlib
import signal
import subprocess

import sight
from virtual_desktop import Desktop, Screen, comes, stays, wait_until

# What every desktop needs to be driven and looked at, and the portal that all of them have.
COMMON = ("xvfb xdotool imagemagick x11-utils x11-xserver-utils dbus-daemon dbus-bin zenity procps "
          "libglib2.0-bin librsvg2-common python3 python3-pil python3-xlib python3-dbusmock "
          "fonts-dejavu-core at-spi2-core dconf-gsettings-backend gsettings-desktop-schemas "
          "adwaita-icon-theme xdg-desktop-portal xdg-desktop-portal-gtk")
SIZE = (1280, 800)
EMPTY_SPOT = (440, 620)  # of every desktop, with no window and no icon
START_LIMIT = 90.0  # seconds, for a shell without a graphics card


class Shell(Desktop):
    """One user's session under one shell: how it is started, restarted and made dark. What differs
    between shells is in its subclasses. `environment` is that of the session's programs; the hand and
    the eye are on the display that the shell draws on, which may be another one."""

    packages = ""
    edge = "top"  # of the screen, at which the bar is
    bar = 32  # its thickness, where the shell does not say
    has_status_area = True
    resting_spot = EMPTY_SPOT  # for the pointer, with no window of anybody's below
    variables = {}
    # What cannot be had there: for a check, words of what it finds then. It fails when it finds
    # anything else, also when it holds.
    known_limits = {}
    restarts = "the shell"  # what `restart` restarts

    def __init__(self):
        super().__init__(size="{}x{}".format(*SIZE), accessibility=True)
        self.shell = None
        self.hand = None  # whose mouse, keys and pictures are used

    def _start(self):
        self.environment.update(self.variables)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus("session")
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = self.start_bus("system")
        self.environment["DISPLAY"] = self.start_display(
            "Xvfb", "-screen", "0", "{}x{}x24".format(*SIZE), "-dpi", 96)
        self.hand = Screen(self.directory, dict(self.environment))
        self.announce_environment()
        self._keep_the_client_from_starting()
        self.set_dark(False)
        self.start_shell()
        self.wait_for_picture()

    def _keep_the_client_from_starting(self):
        """At log-in, as its package has it: what it changes on the screen is to be seen."""
        entry = self.home / ".config/autostart/tarnwick-client.desktop"
        entry.parent.mkdir(parents=True)
        entry.write_text("[Desktop Entry]\nType=Application\nName=None\nExec=true\nHidden=true\n"
                         "X-GNOME-Autostart-enabled=false\n", encoding="utf-8")

    def announce_environment(self):
        """What the session bus starts is to know the displays too."""
        self.run("dbus-update-activation-environment", "--all", check=True)

    def start_shell(self):
        raise NotImplementedError

    def restart(self):
        """Restarts what shows the icon, as after a crash."""
        raise NotImplementedError

    def set_dark(self, dark):
        """The setting that the settings portal passes on to programs."""
        scheme = "prefer-dark" if dark else "default"
        self.run("gsettings", "set", "org.gnome.desktop.interface", "color-scheme", scheme, check=True)

    def portal_scheme(self):
        """What the settings portal answers programs that ask: "1" when dark is preferred."""
        answer = self.run("gdbus", "call", "--session", "--dest", "org.freedesktop.portal.Desktop",
                          "--object-path", "/org/freedesktop/portal/desktop", "--method",
                          "org.freedesktop.portal.Settings.Read", "org.freedesktop.appearance",
                          "color-scheme")
        return "".join(letter for letter in answer.replace("uint32", "") if letter.isdigit())

    def wait_for_picture(self):
        """Until the shell has drawn something and stands still."""
        path = self.directory / "ready.png"

        def picture():
            self.hand.screenshot(path)
            data = self.run("convert", path, "-resize", "64x40!", "-depth", 8, "-format", "%k %#", "info:")
            colors, digest = data.split()
            return digest if int(colors) > 4 else None

        def is_still():
            first = picture()
            return first and stays(lambda: picture() == first, 2.0, step=0.5)

        wait_until(is_still, "the shell to draw its bar", START_LIMIT, 0.5, self.describe)

    def start_log_in_manager(self):
        """A stand-in for it, which some shells do not start without."""
        self.start("python3", "-m", "dbusmock", "--system", "--template", "logind")
        self.wait_for_name("--system", "org.freedesktop.login1")

    def wait_for_name(self, bus, name):
        wait_until(lambda: "true" in self.run(
            "gdbus", "call", bus, "--dest", "org.freedesktop.DBus", "--object-path", "/",
            "--method", "org.freedesktop.DBus.NameHasOwner", name), name, START_LIMIT, 0.3,
            self.describe)

    def ask_bus(self, method, *arguments):
        """Asks the session bus itself; returns the answer's words."""
        return self.run("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
                        "/", "--method", f"org.freedesktop.DBus.{method}", *arguments).split()

    def crash_watcher(self):
        """Ends the program that keeps the list of items, which in small shells is the bar."""
        answer = self.ask_bus("GetConnectionUnixProcessID", "org.kde.StatusNotifierWatcher")
        os.kill(int("".join(letter for letter in answer[1] if letter.isdigit())), signal.SIGKILL)

    def has_host(self):
        """Whether a status area shows items of the notifier's kind."""
        return "true" in self.run(
            "gdbus", "call", "--session", "--dest", "org.kde.StatusNotifierWatcher", "--object-path",
            "/StatusNotifierWatcher", "--method", "org.freedesktop.DBus.Properties.Get",
            "org.kde.StatusNotifierWatcher", "IsStatusNotifierHostRegistered")

    def has_x_tray(self):
        return False

    def wait_for_status_area(self):
        wait_until(lambda: self.has_host() or self.has_x_tray(), "a status area", START_LIMIT, 0.5, self.describe)

    def bar_thickness(self):
        """From the work area, where the shell publishes one."""
        words = self.run("xprop", "-root", "_NET_WORKAREA").replace(",", "").split()
        values = [int(word) for word in words if word.isdigit()]
        if len(values) < 4:
            return self.bar
        _, top, _, height = values[:4]
        thickness = top if self.edge == "top" else SIZE[1] - top - height
        return thickness if 0 < thickness < 100 else self.bar

    def other_window_environment(self):
        """For a window that is of the session's usual kind."""
        return {}

    def describe(self):
        return {process.log.name: process.output()[-2000:] for process in self.processes}

    def version(self):
        """Of the package that is the shell."""
        run = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", self.packages.split()[0]],
                             stdout=subprocess.PIPE, text=True, check=False)
        return run.stdout


class XShell(Shell):
    """A shell that draws on the X display itself."""

    variables = {"XDG_SESSION_TYPE": "x11"}

    def has_x_tray(self):
        return sight.has_owner(self.environment["DISPLAY"], "_NET_SYSTEM_TRAY_S0")


class NestedShell(Shell):
    """A Wayland compositor with its output in a window on the X display; X programs of the session
    have another display, Xwayland's."""

    variables = {"XDG_SESSION_TYPE": "wayland"}

    def wait_for_displays(self, environment):
        """Takes over what the compositor made known to its children."""
        self.environment.update(environment)
        self.announce_environment()
        wait_until(lambda: comes(lambda: "WIDTH" in self.run("xdotool", "getdisplaygeometry", "--shell"), 5),
                   "Xwayland", START_LIMIT, 0.5, self.describe)

    def wait_for_file(self, told):
        """Takes over the displays that a program of the compositor wrote down there."""
        wait_until(told.exists, "the compositor", START_LIMIT, describe=self.describe)
        variables = dict(line.split("=", 1) for line in told.read_text(encoding="utf-8").splitlines()
                         if "=" in line)
        names = ("DISPLAY", "XAUTHORITY", "WAYLAND_DISPLAY", "SWAYSOCK")
        self.wait_for_displays({name: variables[name] for name in names if name in variables})

    def x_displays(self):
        """The names of those that exist."""
        return {f":{path.name[1:]}" for path in pathlib.Path("/tmp/.X11-unix").glob("X*")}
