# SPDX-License-Identifier: MIT
"""What is to be seen while windows open, and while rows of the panel come and go, frame by frame."""

import collections
import unittest

from session import GOOD_KEY, Session
from virtual_desktop import Desktop, Film, Rect, wait_until

CORNER = 12  # pixels, in which the background shows through
LEAST_COLORS = 20  # of a window with texts, whose edges are smooth


def inside(rect):
    return Rect(rect.x + CORNER, rect.y + CORNER, rect.width - 2 * CORNER, rect.height - 2 * CORNER)


def colors_of(pixels):
    return collections.Counter(pixels[i:i + 4] for i in range(0, len(pixels), 4))


def unfinished(frames, rect):
    """The frames in which that part of the screen is neither as before the window opened nor has
    its background and its texts, as in the last frame."""
    before, last = frames[0].crop(rect), colors_of(frames[-1].crop(rect))
    background = last.most_common(1)[0][0]

    def is_unfinished(frame):
        pixels = frame.crop(rect)
        colors = colors_of(pixels)
        return pixels != before and (len(colors) < LEAST_COLORS
                                     or colors.most_common(1)[0][0] != background)

    return [number for number, frame in enumerate(frames) if is_unfinished(frame)]


def start_compositor(desktop):
    desktop.start("xcompmgr", "-n")
    wait_until(lambda: "_NET_WM_CM_S0" in desktop.run("xlsatoms"), "the compositor")


class Opening(unittest.TestCase):
    """From the first frame on a window has its contents."""

    def check(self, desktop, is_composited):
        with desktop:
            if is_composited:
                start_compositor(desktop)
            client = desktop.start_client()
            icon = desktop.wait_for_icon(client)
            for opening in ("first", "second"):
                with self.subTest(composited=is_composited, opening=opening):
                    with Film(desktop) as film:
                        desktop.click(icon.center)
                        panel = desktop.wait_for_panel(client)
                    self.assertGreaterEqual(len(film.frames), 2)
                    last = colors_of(film.frames[-1].crop(inside(panel)))
                    self.assertGreaterEqual(len(last), LEAST_COLORS)
                    self.assertEqual(unfinished(film.frames, inside(panel)), [])
                    desktop.key("Escape")
                    desktop.wait_for_no_panel(client)

    def test_the_panel_is_never_empty(self):
        self.check(Desktop(tray="top"), is_composited=False)
        self.check(Desktop(tray="top"), is_composited=True)

    def test_an_empty_window_would_be_seen(self):
        with Desktop() as desktop:
            with Film(desktop) as film:
                desktop.run("xsetroot", "-solid", "#123456", check=True)
                wait_until(lambda: film.frames[-1] != film.frames[0], "another colour")
            self.assertNotEqual(unfinished(film.frames, Rect(100, 100, 300, 300)), [])


class Rows(unittest.TestCase):
    """What is at the bar stays there while rows come and go."""

    def check(self, edge, is_composited, check_frames):
        with self.subTest(edge=edge, composited=is_composited), Session(tray=edge) as session:
            desktop = session.desktop
            if is_composited:
                start_compositor(desktop)
            session.begin(GOOD_KEY)
            session.open_panel()
            session.wait_for_texts("Connected")
            desktop.move_mouse((5, 400))
            desktop.wait_for_panel(session.client)
            large = self.panel(session)
            with Film(desktop) as film:
                session.press("Disconnect")
                session.wait_for_texts("Stopped")
                wait_until(lambda: self.panel(session).height < large.height, "fewer rows")
                small = self.panel(session)
                session.daemon.log_in(GOOD_KEY)
                session.press("Refresh")
                session.wait_for_texts("Connected")
                wait_until(lambda: self.panel(session) == large, "all rows")
            self.assertEqual((small.x, small.width), (large.x, large.width))
            check_frames(film.frames, large, small)

    def panel(self, session):
        """What is to be seen of it; the window may be higher."""
        return Rect(*session.windows()[0].rect)

    def check_title(self, frames, large, small):
        self.assertEqual(small.y, large.y)
        self.assertGreaterEqual(len(frames), 3)
        title = Rect(large.x + 40, large.y + CORNER, 160, 16)
        wanted = frames[0].crop(title)
        moved = [number for number, frame in enumerate(frames) if frame.crop(title) != wanted]
        self.assertEqual(moved, [], f"of {len(frames)} frames")

    def check_last_rows(self, frames, large, small):
        moved = self.moved_last_rows(frames, large, small)
        self.assertEqual(moved[-1:], [False])

    def check_last_rows_of_each_frame(self, frames, large, small):
        self.assertEqual(sum(self.moved_last_rows(frames, large, small)), 0, f"of {len(frames)}")

    def moved_last_rows(self, frames, large, small):
        self.assertEqual(small.bottom, large.bottom)
        self.assertGreaterEqual(len(frames), 3)
        rows = Rect(large.x + 40, large.bottom - 90, 200, 80)
        wanted = frames[0].crop(rows)
        return [frame.crop(rows) != wanted for frame in frames]

    def test_under_a_bar_at_the_top_the_title_does_not_move(self):
        self.check("top", False, self.check_title)
        self.check("top", True, self.check_title)

    def test_over_a_bar_at_the_bottom_the_last_rows_do_not_move(self):
        self.check("bottom", True, self.check_last_rows_of_each_frame)

    def test_where_rows_have_gone_clicks_reach_what_is_behind(self):
        with Session(tray="bottom") as session:
            desktop = session.desktop
            start_compositor(desktop)
            session.begin(GOOD_KEY)
            behind, rect = desktop.open_window(Rect(700, 100, 560, 500))
            session.open_panel()
            session.wait_for_texts("Connected")
            desktop.wait_for_panel(session.client)
            large = self.panel(session)
            session.press("Disconnect")
            wait_until(lambda: self.panel(session).height < large.height, "fewer rows")
            point = large.center[0], large.y + 20
            self.assertTrue(rect.y < point[1] < rect.bottom, (rect, large))
            self.assertLess(point[1], self.panel(session).y)
            desktop.click(point)
            desktop.wait_for_no_panel(session.client)
            self.assertEqual(desktop.active_window(), behind)

    def test_over_a_bar_at_the_bottom_without_a_compositor_they_end_where_they_were(self):
        self.check("bottom", False, self.check_last_rows)


if __name__ == "__main__":
    unittest.main()
