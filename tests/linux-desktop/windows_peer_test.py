#!/usr/bin/env python3
"""The program's own windows under a window manager: which is in front, and being brought there."""

import unittest

from peer_case import PeerCase, wait_until


class WithAWindowManager(PeerCase):
    def test_is_in_front_with_its_window(self):
        probe = self.probe()
        self.assertEqual(probe.do("active"), ["behind"])
        probe.do("window", "one")
        wait_until(lambda: probe.do("active") == ["in front"], "in front")

    def test_comes_to_the_front_when_asked(self):
        probe = self.probe()
        probe.do("window", "one")
        wait_until(lambda: probe.do("active") == ["in front"], "in front")
        other = self.probe()
        other.do("window", "two")
        wait_until(lambda: other.do("active") == ["in front"], "the other in front")
        wait_until(lambda: probe.do("active") == ["behind"], "behind")
        probe.do("activate")
        wait_until(lambda: probe.do("active") == ["in front"], "in front again")
        wait_until(lambda: self.desktop.title() == "one", "the window one in front")

    def test_without_a_window_there_is_nothing_to_bring(self):
        probe = self.probe()
        probe.do("activate")
        self.assertTrue(probe.is_well())

    def test_without_a_chooser_a_panel_counts_as_dismissed(self):
        probe = self.probe()
        self.assertEqual(probe.do("choose"), [])
        self.assertEqual(probe.line(), "dismissed")


class WithoutAWindowManager(PeerCase):
    DESKTOP = {"window_manager": False}

    def test_goes_on(self):
        probe = self.probe()
        probe.do("window", "one")
        probe.do("activate")
        self.assertTrue(probe.is_well())


if __name__ == "__main__":
    unittest.main()
