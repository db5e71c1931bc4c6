#!/usr/bin/env python3
"""The tray: trayer, a watcher of status notifier items of the test's own, and none."""

import subprocess
import unittest

from peer_case import PeerCase, wait_until

NAME = "org.kde.StatusNotifierWatcher"
COLOR = bytes([255, 0, 200])  # of the probe's icon


class WithTrayer(PeerCase):
    def start_tray(self):
        return self.desktop.start(["trayer", "--edge", "bottom", "--align", "left",
                                   "--height", "24", "--SetDockType", "true"],
                                  stderr=subprocess.DEVNULL)

    def icon(self):
        """Where the icon is on the screen; nothing where it is not on view."""
        width, _ = self.desktop.size
        picture = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], check=True,
                                 env=self.desktop.environment, stdout=subprocess.PIPE).stdout
        for start in range(0, len(picture), 3 * width):
            place = picture.find(COLOR * 8, start, start + 3 * width)
            if place >= 0:
                return (place - start) // 3 + 4, start // (3 * width) + 4
        return None

    def press(self, probe):
        """Presses the icon until the probe is told: a tray that has just come moves its icons yet,
        and then the press went beside."""
        def is_told():
            x, y = wait_until(self.icon, "the icon")
            self.desktop.run(["xdotool", "mousemove", x, y, "click", "1"])
            probe.tell("turn")
            said = list(iter(probe.line, "turned"))
            return "activated" in said

        wait_until(is_told, "a press that is told")

    def test_shows_the_icon_and_is_told_of_a_press(self):
        self.start_tray()
        probe = self.probe()
        wait_until(lambda: probe.answer("tray") == "tray", "the tray is known")
        self.assertIsNone(self.icon())
        probe.do("show tray")
        self.press(probe)

    def test_hides_the_icon(self):
        self.start_tray()
        probe = self.probe()
        probe.do("show tray")
        wait_until(self.icon, "the icon")
        probe.do("hide tray")
        wait_until(lambda: self.icon() is None, "no icon")
        probe.do("show tray")
        wait_until(self.icon, "the icon again")

    def test_follows_a_tray_that_comes_goes_and_comes_back(self):
        probe = self.probe()
        probe.do("show tray")
        self.assertEqual(probe.answer("tray"), "no tray")
        for _ in range(2):
            tray = self.start_tray()
            self.assertEqual(probe.line(), "tray")
            self.press(probe)
            self.desktop.end(tray)
            # A press that went beside may still have been told of meanwhile.
            self.assertEqual(next_other_than("activated", probe), "no tray")
            wait_until(lambda: self.icon() is None, "no icon")
        self.assertTrue(probe.is_well())


class WithAWatcher(PeerCase):
    def test_shows_icon_and_tooltip_and_is_told_of_a_press(self):
        watcher = self.peer("notifier_watcher.py", NAME)
        probe = self.probe()
        self.assertEqual(probe.line(), "tray")
        probe.do("show tray")
        self.assertEqual(watcher.line(), "item")
        self.assertIn("41 GB free", watcher.ask("tooltip"))
        probe.do("tooltip", "40 GB free")
        self.assertIn("40 GB free", watcher.ask("tooltip"))
        watcher.tell("press")
        self.assertEqual(probe.line(), "activated")
        self.assertEqual(watcher.line(), "pressed")

    def test_follows_a_panel_that_goes_and_comes_back(self):
        watcher = self.peer("notifier_watcher.py", NAME)
        probe = self.probe()
        self.assertEqual(probe.line(), "tray")
        probe.do("show tray")
        self.assertEqual(watcher.line(), "item")
        self.assertEqual(watcher.ask("panel", "gone"), "panel gone")
        self.assertEqual(probe.line(), "no tray")
        self.assertEqual(watcher.ask("panel", "there"), "panel there")
        self.assertEqual(probe.line(), "tray")

    def test_follows_a_watcher_that_comes_goes_and_comes_back(self):
        probe = self.probe()
        probe.do("show tray")
        self.assertEqual(probe.answer("tray"), "no tray")
        for _ in range(2):
            watcher = self.peer("notifier_watcher.py", NAME)
            self.assertEqual(probe.line(), "tray")
            self.assertEqual(watcher.line(), "item")
            watcher.tell("press")
            self.assertEqual(probe.line(), "activated")
            self.assertEqual(watcher.line(), "pressed")
            self.desktop.end(watcher.process)
            self.assertEqual(probe.line(), "no tray")
        self.assertTrue(probe.is_well())


class WithoutATray(PeerCase):
    def test_goes_on(self):
        probe = self.probe()
        probe.do("show tray")
        probe.do("tooltip", "40 GB free")
        self.assertTrue(probe.is_well())
        self.assertEqual(probe.answer("tray"), "no tray")
        probe.do("hide tray")
        self.assertTrue(probe.is_well())


class WithoutABus(PeerCase):
    DESKTOP = {"bus": False}

    def test_goes_on_without_a_tray(self):
        probe = self.probe()
        probe.do("show tray")
        self.assertTrue(probe.is_well())
        self.assertEqual(probe.answer("tray"), "no tray")

    def test_finds_a_tray_that_needs_no_bus(self):
        probe = self.probe()
        probe.do("show tray")
        self.desktop.start(["trayer"], stderr=subprocess.DEVNULL)
        self.assertEqual(probe.line(), "tray")


class WithoutADisplay(PeerCase):
    DESKTOP = {"window_manager": False}

    def test_goes_on_without_a_tray(self):
        probe = self.probe(env=self.environment(QT_QPA_PLATFORM="offscreen"))
        probe.do("show tray")
        self.assertTrue(probe.is_well())
        self.assertEqual(probe.answer("tray"), "no tray")


def next_other_than(known, probe):
    return next(line for line in iter(probe.line, None) if line != known)


if __name__ == "__main__":
    unittest.main()
