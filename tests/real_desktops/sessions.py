# SPDX-License-Identifier: MIT
"""The sessions that can be tried, by their names: release of Debian and shell."""

from gnome import GnomeWayland, GnomeX11, GnomeX11Plain
from x11_shells import Xfce

SESSIONS = {
    "xfce": ("bookworm", Xfce),
    "gnome-wayland": ("bookworm", GnomeWayland),
    "gnome-x11": ("bookworm", GnomeX11),
    "gnome-x11-plain": ("bookworm", GnomeX11Plain),
}
