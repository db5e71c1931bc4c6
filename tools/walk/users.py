"""Users of the window: with a pointer, with the keyboard, with both, and with a screen reader.

Each presses what is called by its role and its name, wherever it stands.
"""

from preview import DesktopError

# By these a list, a sidebar or a choice is one stop for Tab, with arrows inside.
GROUPS = ("list", "grouping", "panel")
MANY = 300


class PointerUser:
    """Clicks in the middle of what is to be pressed."""

    def __init__(self, preview):
        self.preview = preview

    def press(self, role, name):
        self.press_node(self.preview.node(role, name))

    def press_node(self, node):
        node = self.at_rest(node)
        x, y, width, height = node.box
        self.preview.desktop.run(["xdotool", "mousemove", x + width // 2, y + height // 2,
                                  "click", "1"])

    def scroll(self, node):
        """Turns the wheel over a node by one step."""
        x, y, width, height = node.box
        self.preview.desktop.run(["xdotool", "mousemove", x + width // 2, y + height // 2,
                                  "click", "5"])

    def at_rest(self, node):
        """The node once it stands where it stood at the look before, and is on view."""
        seen = [None]

        def stands_still(tree):
            now = next((each for each in tree.walk() if each.path == node.path), None)
            if now is None:
                raise DesktopError("%s %r has gone" % (node.role, node.name))
            before, seen[0] = seen[0], now.box
            return now if before == now.box else None

        return self.preview.until(stands_still, "%r at rest" % node.name)

    def aside(self):
        """Takes the pointer off everything, as for a picture."""
        self.preview.desktop.run(["xdotool", "mousemove", 0, 0])


class KeyboardUser:
    """Tabs to what is to be pressed, goes on by arrows inside a list, and presses Space; a row of a
    list is opened by Return."""

    def __init__(self, preview):
        self.preview = preview

    def press(self, role, name):
        self.press_node(self.preview.node(role, name))

    def press_node(self, node):
        self.go_to(node)
        self.key("Return" if node.role == "list item" else "space")

    def aside(self):
        pass

    def key(self, key):
        self.preview.desktop.run(["xdotool", "key", key])

    def go_to(self, target):
        """Brings the keyboard to a node, by Tab and arrows alone. What stands in a row is reached
        from the row itself, by the arrow to the right."""
        row = next((each for each in target.above() if each.role == "list item"), None)
        if row is not None and target.role == "push button":
            self.go_to(row)
            for _ in range(MANY):
                if self.focus(self.preview.tree()) == target.path:
                    return
                self.key("Right")
                self.preview.until(lambda tree: self.focus(tree) != row.path,
                                   "the keyboard in the row after Right")
        stops = []
        for _ in range(MANY):
            tree = self.preview.tree()
            now = self.focus(tree)
            if now == target.path:
                return
            step = self.arrow(tree, now, target) or "Tab"
            if step == "Tab":
                if stops.count(now) > 1:
                    break
                stops.append(now)
            self.key(step)
            self.preview.until(lambda tree: self.focus(tree) not in (None, now),
                               "the keyboard elsewhere after %s" % step)
        raise DesktopError("Tab does not lead to %s %r" % (target.role, target.name))

    @staticmethod
    def focus(tree):
        focused = tree.focused()
        return focused[-1].path if focused else None

    @staticmethod
    def arrow(tree, now, target):
        """The arrow from where the keyboard is to a target in the same list or choice; None where
        they have none in common."""
        order = list(tree.walk())
        places = {node.path: place for place, node in enumerate(order)}
        if now not in places or target.path not in places:
            return None
        here, there = order[places[now]], order[places[target.path]]
        if here.role not in ("list item", "radio button", "check box"):
            return None

        def group(node):
            return next((each.path for each in node.above() if each.role in GROUPS), None)

        if group(here) is None or group(here) != group(there):
            return None
        if there.role not in ("list item", "radio button"):
            return None
        back, on = ("Left", "Right") if here.role == "radio button" else ("Up", "Down")
        return on if places[target.path] > places[now] else back


class NamesUser:
    """Does what a screen reader offers: the actions that a control names."""

    def __init__(self, preview):
        self.preview = preview

    def press(self, role, name):
        self.press_node(self.preview.node(role, name))

    def press_node(self, node):
        if not node.is_available():
            raise DesktopError("%s %r is not available" % (node.role, node.name))
        self.preview.act(node, "Press")

    def aside(self):
        pass


class BothHandsUser(PointerUser):
    """Clicks buttons, and goes to the rows of lists by keyboard."""

    def __init__(self, preview):
        super().__init__(preview)
        self.keyboard = KeyboardUser(preview)

    def press_node(self, node):
        if node.role == "list item":
            self.keyboard.press_node(node)
        else:
            super().press_node(node)


USERS = {"both": BothHandsUser, "pointer": PointerUser, "keyboard": KeyboardUser, "names": NamesUser}
