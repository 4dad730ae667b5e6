# SPDX-License-Identifier: MIT
"""Plasma, on X and as a Wayland compositor."""

import pathlib
import shutil

from shell import COMMON, SIZE, NestedShell, Shell, XShell

PACKAGES = ("plasma-workspace plasma-desktop plasma-integration breeze breeze-icon-theme kio "
            f"xdg-desktop-portal-kde {COMMON}")


class Plasma(Shell):
    """What both have in common."""

    packages = f"{PACKAGES} kwin-x11 kwin-wayland plasma-workspace-wayland kded5 xwayland"
    edge = "bottom"
    bar = 44
    daemon = "kded5"
    variables = {"XDG_CURRENT_DESKTOP": "KDE", "DESKTOP_SESSION": "plasma", "KDE_FULL_SESSION": "true",
                 "KDE_SESSION_VERSION": "5"}

    def start_shell(self):
        self.start_log_in_manager()
        # A picture while the session starts would pass for the desktop.
        (self.home / ".config/ksplashrc").write_text("[KSplash]\nEngine=none\nTheme=None\n",
                                                     encoding="utf-8")
        self.start_desktop()
        self.wait_for_status_area()

    def start_desktop(self):
        raise NotImplementedError

    def restart(self):
        self.start("plasmashell", "--replace")

    def set_dark(self, dark):
        super().set_dark(dark)
        self.run("plasma-apply-colorscheme", "BreezeDark" if dark else "BreezeLight")


class PlasmaX11(Plasma, XShell):
    variables = {**Plasma.variables, **XShell.variables}

    def start_desktop(self):
        self.start("startplasma-x11")


class PlasmaWayland(Plasma, NestedShell):
    variables = {**Plasma.variables, **NestedShell.variables, "KWIN_COMPOSE": "Q"}

    def start_desktop(self):
        # A copy: the program's right to real-time scheduling is refused where users have none.
        kwin = pathlib.Path(shutil.copy(shutil.which("kwin_wayland"), self.directory))
        told = self.directory / "displays"
        tell = self.directory / "tell"
        tell.write_text(f"#!/bin/sh\nenv >{told}.new\nmv {told}.new {told}\n", encoding="utf-8")
        tell.chmod(0o755)
        self.start(kwin, "--xwayland", "--no-lockscreen", "--width", SIZE[0], "--height", SIZE[1],
                   "--x11-display", self.environment["DISPLAY"], "--socket", "wayland-0", tell)
        self.wait_for_file(told)
        self.start(self.daemon)
        self.start("plasmashell")


PACKAGES_13 = f"{PACKAGES} kwin-x11 kwin-wayland kded6 xwayland"


class Plasma6X11(PlasmaX11):
    packages = PACKAGES_13
    variables = {**PlasmaX11.variables, "KDE_SESSION_VERSION": "6"}


class Plasma6Wayland(PlasmaWayland):
    packages = PACKAGES_13
    variables = {**PlasmaWayland.variables, "KDE_SESSION_VERSION": "6"}
    daemon = "kded6"
