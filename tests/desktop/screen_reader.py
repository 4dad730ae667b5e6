# SPDX-License-Identifier: MIT
"""What assistive technology sees of a program, and how it works it.

    with ScreenReader(desktop) as reader:
        (window,) = reader.windows(client)
        reader.press(window.find(Role.BUTTON, "Refresh"))

The library serves one session bus in a process's life: a process of its own does the reading, so
that one test may use several desktops. Run as a program, this file is that process.
"""

import enum
import json
import subprocess
import sys

READINGS = 10


class Role(enum.IntEnum):
    """The library's numbers of the roles that are asked for. Its names change from one release to
    the next: "push button" became "button"."""

    LABEL = 29
    BUTTON = 43
    FIELD = 61


class Node:
    """An accessible object as it was when it was read."""

    def __init__(self, data, parent=None):
        self.id = data["id"]
        self.role = data["role"]
        self.role_name = data["role_name"]
        self.name = data["name"]
        self.description = data["description"]
        self.states = frozenset(data["states"])
        self.rect = tuple(data["rect"])
        self.actions = tuple(data["actions"])
        self.text = data["text"]
        self.parent = parent
        self.children = [Node(child, self) for child in data["children"]]

    def __repr__(self):
        return f"{self.role_name} {self.name!r} {self.rect}"

    @property
    def center(self):
        x, y, width, height = self.rect
        return x + width // 2, y + height // 2

    @property
    def is_shown(self):
        return "showing" in self.states and "visible" in self.states

    def walk(self):
        yield self
        for child in self.children:
            yield from child.walk()

    def shown(self):
        return [node for node in self.walk() if node.is_shown]

    def find_all(self, role, name=None, description=None):
        return [node for node in self.shown() if node.role == role
                and name in (None, node.name) and description in (None, node.description)]

    def find(self, role, name=None, description=None):
        """The first such node that is shown; None when there is none."""
        return next(iter(self.find_all(role, name, description)), None)


class ScreenReader:
    """Reads and works the programs of one desktop."""

    def __init__(self, desktop):
        self._process = subprocess.Popen(
            ["/usr/bin/python3", "-B", "-W", "ignore::DeprecationWarning", __file__],
            env=desktop.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self._process.stdin.close()
        try:
            self._process.wait(20.0)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait(5.0)
        self._process.stdout.close()

    def _ask(self, **request):
        self._process.stdin.write(json.dumps(request) + "\n")
        self._process.stdin.flush()
        answer = json.loads(self._process.stdout.readline() or '{"error": "the reader has ended"}')
        if "error" in answer:
            raise RuntimeError(answer["error"])
        return answer["result"]

    def windows(self, process):
        """The windows of that process that are shown, as trees."""
        found = [Node(data) for data in self._ask(do="read", pid=process.pid)]
        return [window for window in found if window.is_shown]

    def press(self, node):
        """Does the node's action named Press."""
        self._ask(do="press", id=node.id)

    def write(self, node, text):
        """Replaces the text of a field."""
        self._ask(do="write", id=node.id, text=text)

    def focus(self, node):
        self._ask(do="focus", id=node.id)


class Server:
    """The process that holds the library."""

    def __init__(self):
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        self.atspi, self.glib = Atspi, GLib
        self.nodes = []
        Atspi.init()
        Atspi.set_timeout(20000, 20000)

    def read(self, pid):
        for _ in range(READINGS - 1):
            try:
                return self.read_once(pid)
            except self.glib.Error:
                pass  # something went away while it was read
        return self.read_once(pid)

    def read_once(self, pid):
        self.nodes = []
        applications = self.children(self.atspi.get_desktop(0))
        return [self.describe(window) for application in applications
                if application.get_process_id() == pid for window in self.children(application)]

    def children(self, node):
        # Without events, what was read before would be believed for ever.
        node.clear_cache()
        found = (node.get_child_at_index(i) for i in range(node.get_child_count()))
        return [child for child in found if child is not None]

    def describe(self, node):
        self.nodes.append(node)
        number = len(self.nodes) - 1
        children = self.children(node)
        return {
            "id": number,
            "role": int(node.get_role()),
            "role_name": node.get_role_name(),
            "name": node.get_name(),
            "description": node.get_description(),
            "states": [state.value_nick for state in node.get_state_set().get_states()],
            "rect": self.rect(node),
            "actions": self.actions(node),
            "text": self.text(node),
            "children": [self.describe(child) for child in children],
        }

    def rect(self, node):
        if node.get_component_iface() is None:
            return [0, 0, 0, 0]
        extents = node.get_extents(self.atspi.CoordType.SCREEN)
        return [extents.x, extents.y, extents.width, extents.height]

    def actions(self, node):
        if node.get_action_iface() is None:
            return []
        return [self.atspi.Action.get_action_name(node, i)
                for i in range(self.atspi.Action.get_n_actions(node))]

    def text(self, node):
        if node.get_text_iface() is None:
            return None
        return self.atspi.Text.get_text(node, 0, self.atspi.Text.get_character_count(node))

    def press(self, id):
        node = self.nodes[id]
        return self.atspi.Action.do_action(node, self.actions(node).index("Press"))

    def write(self, id, text):
        return self.atspi.EditableText.set_text_contents(self.nodes[id], text)

    def focus(self, id):
        return self.atspi.Component.grab_focus(self.nodes[id])

    def answer(self, request):
        do = {"read": self.read, "press": self.press, "write": self.write, "focus": self.focus}
        try:
            return {"result": do[request.pop("do")](**request)}
        except Exception as error:  # the other side raises it
            return {"error": f"{type(error).__name__}: {error}"}

    def run(self):
        for line in sys.stdin:
            print(json.dumps(self.answer(json.loads(line))), flush=True)


if __name__ == "__main__":
    Server().run()
