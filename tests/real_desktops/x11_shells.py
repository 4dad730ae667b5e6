# SPDX-License-Identifier: MIT
"""Desktops that draw on the X display themselves."""

from shell import COMMON, XShell


class Xfce(XShell):
    packages = f"xfce4 gnome-themes-extra {COMMON}"
    variables = {**XShell.variables, "XDG_CURRENT_DESKTOP": "XFCE", "DESKTOP_SESSION": "xfce"}
    restarts = "the panel"

    def start_shell(self):
        self.start("xfce4-session")
        self.wait_for_status_area()

    def restart(self):
        self.run("xfce4-panel", "--restart", check=True)

    def set_dark(self, dark):
        super().set_dark(dark)
        self.run("xfconf-query", "-c", "xsettings", "-p", "/Net/ThemeName", "--create", "-t", "string",
                 "-s", "Adwaita-dark" if dark else "Adwaita", check=True)


class Mate(XShell):
    packages = f"mate-desktop-environment-core mate-icon-theme gnome-themes-extra {COMMON}"
    variables = {**XShell.variables, "XDG_CURRENT_DESKTOP": "MATE", "DESKTOP_SESSION": "mate"}
    restarts = "the panel"

    def start_shell(self):
        self.start("mate-session")
        self.wait_for_status_area()

    def restart(self):
        self.start("mate-panel", "--replace")

    def set_dark(self, dark):
        super().set_dark(dark)
        self.run("gsettings", "set", "org.mate.interface", "gtk-theme",
                 "Adwaita-dark" if dark else "Adwaita", check=True)


class Lxqt(XShell):
    packages = f"lxqt-core openbox lxqt-themes papirus-icon-theme {COMMON}"
    edge = "bottom"
    variables = {**XShell.variables, "XDG_CURRENT_DESKTOP": "LXQt", "DESKTOP_SESSION": "lxqt"}
    restarts = "the panel"

    def start_shell(self):
        settings = self.home / ".config/lxqt/session.conf"
        settings.parent.mkdir(parents=True)
        settings.write_text("[General]\nwindow_manager=openbox\n", encoding="utf-8")
        self.start("startlxqt")
        self.wait_for_status_area()

    def restart(self):
        """The session starts what has crashed again."""
        self.crash_watcher()


class Cinnamon(XShell):
    packages = f"cinnamon-core gnome-themes-extra {COMMON}"
    edge = "bottom"
    bar = 40
    variables = {**XShell.variables, "XDG_CURRENT_DESKTOP": "X-Cinnamon", "DESKTOP_SESSION": "cinnamon"}

    def start_shell(self):
        self.start_log_in_manager()
        self.start("cinnamon-session", "--session", "cinnamon")
        self.wait_for_status_area()

    def restart(self):
        self.start("cinnamon", "--replace")

    def set_dark(self, dark):
        super().set_dark(dark)
        self.run("gsettings", "set", "org.cinnamon.desktop.interface", "gtk-theme",
                 "Adwaita-dark" if dark else "Adwaita", check=True)
