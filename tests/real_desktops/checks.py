# SPDX-License-Identifier: MIT
"""What has to hold under every shell. Each check returns what it measured or raises `No`."""

import time

import sight
from shell import EMPTY_SPOT
from trial import ANSWER_LIMIT, ICON_LIMIT, NEAR, POPOVER_GAP, WHOLE, No
from virtual_desktop import Rect, comes, stays

DARK, LIGHT = 0.4, 0.6  # a panel's background is darker, or lighter
LEAST_COLORS = 16  # of a panel with smooth letters
LAUNCH_LIMIT = 2.0  # seconds
BUSY_LIMIT = 2.0  # seconds after the panel is there
SAME_POINTER = 0.04  # of its picture; an arrow from Xwayland has a fainter edge than the shell's


def icon(trial):
    trial.hand.move_mouse(trial.shell.resting_spot)
    trial.still_picture()
    trial.resting_pointer = trial.pointer_picture("pointer-before")
    took = trial.start_client()
    if took > ICON_LIMIT:
        raise No(f"after {took:.1f} s")
    return f"{took:.1f} s, at {trial.icon}"


def click(trial):
    before = trial.still_picture()
    rect = trial.open_panel()
    picture = trial.still_picture()
    trial.keep("panel.png")
    share = sight.share_of_changes(before, picture, rect)
    if share < 0.4 or sight.number_of_colors(picture, rect) < LEAST_COLORS:
        raise No(f"it is not in the picture: {share:.0%} of {rect} changed")
    return "opens"


def under_icon(trial):
    rect = trial.opened_panel()
    bar, middle = trial.bar, trial.icon.center[0]
    gap = rect.y - bar.bottom if trial.shell.edge == "top" else bar.y - rect.bottom
    if abs(gap) > NEAR:
        raise No(f"{gap} pixels from the bar")
    if not rect.x <= middle <= rect.right:
        raise No(f"panel {rect.x} to {rect.right}, icon at {middle}")
    if not WHOLE.contains(rect):
        raise No(f"beyond the screen: {rect}")
    return f"{gap} px"


def pointer(trial):
    trial.opened_panel()
    trial.hand.move_mouse(trial.shell.resting_spot)

    def difference():
        """What is other than before: the server's pointer, and a share of the picture."""
        server, drawn = trial.pointer_picture()
        server_before, drawn_before = trial.resting_pointer
        share = sight.share_of_changes(drawn_before, drawn, Rect(0, 0, *drawn.size))
        return server != server_before, share

    def rests():
        return difference() <= (False, SAME_POINTER)

    began = time.monotonic()
    if not comes(rests, BUSY_LIMIT):
        trial.picture("busy-pointer")
        if not comes(rests, 20.0):
            raise No("busy for more than 20 s (the server's: {}, its picture: {:.1%})".format(
                *difference()))
        raise No(f"busy for {time.monotonic() - began:.0f} s")
    return "at rest"


def second_click(trial):
    trial.opened_panel()
    trial.click(trial.icon.center)
    if not trial.wait_until_closed():
        raise No("still open")
    if not stays(lambda: trial.panel() is None, 1.0):
        raise No("opens again")
    return "closes"


def escape(trial):
    trial.opened_panel()
    time.sleep(0.5)
    trial.hand.key("Escape")
    if not trial.wait_until_closed():
        raise No("still open")
    return "closes"


def other_window(trial):
    before = trial.still_picture()
    window = trial.shell.start("zenity", "--text-info", "--title=Another window", "--width=320",
                               "--height=240", environment=trial.shell.other_window_environment())
    try:
        area = Rect(0, 64, WHOLE.width, WHOLE.height - 128)
        if not comes(lambda: sight.share_of_changes(before, trial.picture("window"), area) > 0.05, 20):
            raise No("the other window does not show")
        place = sight.changed_rect(before, trial.still_picture(), area)
        panel = trial.opened_panel()
        spots = [point for point in (place.center, (place.x + 60, place.center[1]),
                                     (place.right - 60, place.center[1]),
                                     (place.center[0], place.bottom - 70))
                 if not panel.intersects(Rect(point[0] - 4, point[1] - 4, 8, 8))]
        trial.picture("other-window")
        if not spots:
            raise No("the panel covers the whole other window")
        trial.click(spots[0])
        if not trial.wait_until_closed():
            trial.picture("other-window-clicked")
            raise No("still open")
        return "closes"
    finally:
        window.stop()


def empty_desktop(trial):
    trial.opened_panel()
    trial.click(EMPTY_SPOT)
    if not trial.wait_until_closed():
        raise No("still open")
    return "closes"


def devices(trial):
    panel = trial.panel_anyhow()
    # The first row that does anything when it is clicked.
    for y in range(panel.y + 20, panel.bottom - 40, 16):
        trial.click((panel.x + panel.width // 3, y))
        if comes(lambda: len(trial.windows()) > 1, 0.4):
            break
        if not trial.panel():
            raise No(f"the panel closes on a click at {panel.x + panel.width // 3}, {y}")
    if not comes(lambda: len(trial.windows()) > 1, 1.0):
        raise No("no popover")
    trial.still_picture()
    trial.keep("devices.png")
    panel = next((rect for rect in trial.windows() if rect == panel), None)
    popovers = [rect for rect in trial.windows() if rect != panel]
    if panel is None or len(popovers) != 1:
        raise No(f"windows {trial.windows()}")
    (popover,) = popovers
    if not WHOLE.contains(popover):
        raise No(f"beyond the screen: {popover}")
    gap = max(panel.x - popover.right, popover.x - panel.right)
    if not -NEAR <= gap <= POPOVER_GAP:
        raise No(f"{gap} pixels from the panel's side: {panel}, {popover}")
    return f"{gap} px"


def follows_dark(trial):
    """Changed while the panel is open."""
    rect = trial.panel_anyhow()
    light = sight.brightness(trial.still_picture(), rect)
    if light < LIGHT:
        raise No(f"not light to begin with: {light:.2f}")
    trial.shell.set_dark(True)
    last = []

    def is_dark():
        current = trial.panel()
        if current:
            last.append(sight.brightness(trial.picture("dark"), current))
        return current and last[-1] < DARK

    if not comes(is_dark, ANSWER_LIMIT):
        found = f"stays light: {last[-1]:.2f}" if last else "the panel closed"
        raise No(f"{found}; the settings portal says {trial.shell.portal_scheme()!r}")
    return "turns dark"


def starts_dark(trial):
    trial.close_panel()
    trial.shell.set_dark(True)
    trial.stop_client()
    time.sleep(1.0)
    trial.start_client()
    rect = trial.panel_anyhow()
    picture = trial.still_picture()
    trial.keep("dark.png")
    value = sight.brightness(picture, rect)
    if value > DARK:
        raise No(f"light: {value:.2f}; the settings portal says {trial.shell.portal_scheme()!r}")
    return "dark"


def launched(trial):
    trial.close_panel()
    took = trial.launch()
    trial.still_picture()
    trial.keep("launched.png")
    if trial.icon:
        trial.close_panel()
    if took > LAUNCH_LIMIT:
        raise No(f"the panel comes after {took:.1f} s")
    return f"{took:.1f} s"


def restart(trial):
    trial.close_panel()
    trial.hand.move_mouse(EMPTY_SPOT)
    here = trial.icon
    box = Rect(here.x - 2, here.y - 2, here.width + 4, here.height + 4)
    before = trial.still_picture()
    trial.shell.restart()

    def is_back():
        return sight.share_of_changes(before, trial.picture("restart"), box) < 0.05

    comes(lambda: not is_back(), 10.0)
    if not comes(lambda: is_back() and stays(is_back, 1.0, 0.3), 60.0):
        raise No("the icon is not where it was, see restart.png")
    trial.open_panel()
    return "is back, and a click on it opens"


CHECKS = {
    "icon": icon,
    "click opens": click,
    "under the icon": under_icon,
    "pointer": pointer,
    "second click": second_click,
    "Escape": escape,
    "other window": other_window,
    "empty desktop": empty_desktop,
    "devices": devices,
    "launched": launched,
    "turns dark": follows_dark,
    "starts dark": starts_dark,
    "shell restarts": restart,
}

# Where nothing shows an icon, the panel opens as a window when the client is started by hand.
WITHOUT_STATUS_AREA = ("launched", "devices", "turns dark")
