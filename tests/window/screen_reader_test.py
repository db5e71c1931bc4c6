#!/usr/bin/env python3
"""What the window tells a screen reader is what the program answers without a window."""

import datetime
import json
import re
import unittest

from answers import Driver, buttons, checks, choices, holds_whole, is_made_of, switches, texts
from window_case import DRIVER, WindowCase

from preview import DesktopError
from users import NamesUser, PointerUser

MINUTE = re.compile(r"Today, \d\d:\d\d")
STATES = {"on": {"checked"}, "off": set(), "mixed": {"indeterminate"}}


class WhatAScreenReaderIsTold(WindowCase):
    """Two disks alike: the window works on one, the driver on the other, by the same presses."""

    def setUp(self):
        super().setUp()
        now = datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")
        disk = self.disk(now=now)
        self.driver = Driver(DRIVER, self.disk("other", now=now))
        self.addCleanup(self.driver.close)
        self.driver.ask(appear="shell")
        on = self.start_desktop()
        self.preview = self.start(on, disk, effects=on.folder / "effects")
        self.user = NamesUser(self.preview)

    def go_to(self, row, screen):
        label = self.driver.ask(screen="sidebar")
        places = [each for section in label["sections"] for each in section["rows"]]
        places.append(label["settings"])
        name = next(each["label"] for each in places if each["id"] == row)
        self.driver.ask(set={"selection": row})
        self.driver.ask(appear=screen)
        PointerUser(self.preview).press("list item", name)
        self.preview.node("heading", name)

    def press(self, label, screen, control, row=None):
        self.user.press("push button", label)
        self.driver.press(screen, control, row)

    @staticmethod
    def at_the_same_minute(answer, window):
        """The answer with the minute that the window tells: its clock runs, the other stands."""
        told = {found for node in window.walk() for found in MINUTE.findall(node.name)}
        if len(told) != 1:
            return answer
        return json.loads(MINUTE.sub(told.pop(), json.dumps(answer)))

    def made(self, nodes, answer):
        """An answer without the rows that lie so far from what is on view that they are not made.
        Those on view are, and all before them."""
        names = [node.name for node in nodes if node.role == "list item"]
        box = next(node.box for node in nodes if node.role == "list" and
                   node.name == answer["title"])
        left = []
        for group in answer["groups"]:
            rows = []
            for row in group["rows"]:
                start = row["label"] + ", "
                if not any(name.startswith(start) for name in names):
                    break
                rows.append(row)
            if rows:
                left.append({**group, "rows": rows})
            if len(rows) < len(group["rows"]):
                lowest = max(node.box[1] + node.box[3] for node in nodes
                             if node.role == "list item")
                self.assertGreaterEqual(lowest, box[1] + box[3])
                break
        return {**answer, "groups": left}

    def faults(self, tree, screen):
        """What is wrong with a tree, a line each."""
        window = tree.children[0]
        answer = self.driver.ask(screen=screen)
        answer = self.at_the_same_minute(answer, window)
        sidebar = self.driver.ask(screen="sidebar")
        shell = self.driver.ask(screen="shell")
        nodes = list(window.walk())[1:]
        names = [node.name for node in nodes]
        if answer.get("groups"):
            answer = self.made(nodes, answer)
        told = texts(answer) + texts(sidebar)
        known = set(told) | {menu["title"] for menu in shell["menus"]}
        wrong = []
        if window.name != shell["windowTitle"]:
            wrong.append("the window is called %r" % window.name)
        for text in told:
            if not any(holds_whole(name, text) for name in names):
                wrong.append("%r is in no name" % text)
        for node in nodes:
            if node.role != "alert" and node.role != "alert message" \
                    and not is_made_of(node.name, known):
                wrong.append("%s %r is in no answer" % (node.role, node.name))
            if node.box[2] <= 0 or node.box[3] <= 0:
                wrong.append("%s %r has no size" % (node.role, node.name))
        wrong += self.control_faults(nodes, answer)
        wrong += self.sidebar_faults(nodes, sidebar)
        focused = window.focused()
        if len(focused) != 1:
            wrong.append("focused are %s" % [(node.role, node.name) for node in focused])
        return wrong

    def control_faults(self, nodes, answer):
        wrong = []

        def of(role, label):
            return [node for node in nodes if node.role == role and
                    (node.name == label or node.name.startswith(label + ", "))]

        available = {}
        for role, controls in (("push button", buttons(answer)), ("check box", switches(answer))):
            for control in controls:
                found = of(role, control["label"])
                if not found:
                    wrong.append("%r is no %s" % (control["label"], role))
                for node in found:
                    available.setdefault(node.path, set()).add(control["enabled"])
        for switch in switches(answer):
            for node in of("check box", switch["label"]):
                if ("checked" in node.states) != switch["on"]:
                    wrong.append("%r is not %s" % (switch["label"], switch["on"]))
        for node in nodes:
            may = available.get(node.path, {True})
            if node.is_available() not in may:
                wrong.append("%r says %r" % (node.name, node.description))
            if "focusable" in node.states and not node.is_available():
                wrong.append("%r is a stop though it cannot be used" % node.name)
        for choice in choices(answer):
            for place, option in enumerate(choice["options"]):
                for node in of("radio button", option) or [None]:
                    if node is None:
                        wrong.append("%r is no option" % option)
                    elif ("checked" in node.states) != (place == choice["selected"]):
                        wrong.append("%r is %s" % (option, sorted(node.states)))
                    elif node.parent.name != (choice["label"] or ""):
                        wrong.append("%r belongs to %r" % (option, node.parent.name))
        for check in checks(answer):
            wanted = STATES[check["state"]]
            if not any(node.name == check["label"] and
                       node.states & {"checked", "indeterminate"} == wanted
                       for node in of("check box", check["label"])):
                wrong.append("%r is not ticked %r" % (check["label"], check["state"]))
        title = [node.role for node in nodes if node.name == answer["title"]]
        if "heading" not in title:
            wrong.append("the title is %s" % title)
        return wrong

    def sidebar_faults(self, nodes, sidebar):
        rows = [row for section in sidebar["sections"] for row in section["rows"]]
        rows.append(sidebar["settings"])
        wrong = []
        for row in rows:
            found = [node for node in nodes if node.role == "list item" and
                     node.name == row["label"]]
            if not any(("selected" in node.states) == row["selected"] for node in found):
                wrong.append("the row %r is %s" % (row["label"], found))
        return wrong

    def assertTells(self, screen):
        """Looks until all is as it is answered, since what moves comes to rest first."""
        last = [None]

        def is_right(tree):
            last[0] = self.faults(tree, screen)
            return not last[0]

        try:
            self.preview.until(is_right, "the tree of " + screen)
        except DesktopError:
            self.fail("%s:\n%s\n%s" % (screen, "\n".join(last[0]), self.preview.said()))

    def test_TellsAScreenReaderTheOverviewBeforeAScan(self):
        self.go_to("settings", "settings")
        self.go_to("overview", "overview")
        self.assertTells("overview")

    def test_TellsAScreenReaderWhatAScanFound(self):
        self.go_to("overview", "overview")
        self.press("Sweep", "overview", "card.button")
        self.preview.node("push button", "Review & Sweep")
        self.assertTells("overview")

    def test_TellsAScreenReaderTheReviewAndItsOpenRow(self):
        self.go_to("overview", "overview")
        self.press("Sweep", "overview", "card.button")
        self.press("Review & Sweep", "overview", "card.review")
        self.preview.node("heading", "Sweep")
        self.assertTells("sweepReview")
        group = self.driver.ask(screen="sweepReview")["groups"][0]
        row = group["rows"][0]
        self.user.press_node(self.preview.starting("list item", row["label"] + ", "))
        self.driver.press("sweepReview", "groups.rows.open", row["id"])
        self.assertTells("sweepReview")
        self.user.press("radio button", "None")
        self.driver.press("sweepReview", "preset", value=2)
        self.assertTells("sweepReview")

    def test_TellsAScreenReaderTheSettingsBeforeAndAfterASweep(self):
        self.go_to("settings", "settings")
        self.assertTells("settings")
        self.go_to("overview", "overview")
        self.press("Sweep", "overview", "card.button")
        self.press("Review & Sweep", "overview", "card.review")
        self.press("Move to Trash", "sweepReview", "footer.actions", "0")
        self.preview.node("push button", "Done")
        self.assertTells("overview")
        self.go_to("settings", "settings")
        self.assertTells("settings")


if __name__ == "__main__":
    unittest.main()
