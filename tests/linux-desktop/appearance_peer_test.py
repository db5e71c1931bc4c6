#!/usr/bin/env python3
"""Appearance and reduced motion: a settings portal of the test's own, and none."""

import signal
import unittest

from peer_case import PeerCase

NAME = "org.freedesktop.portal.Desktop"
SCHEME = ("org.freedesktop.appearance", "color-scheme")
MOTION = ("org.freedesktop.appearance", "reduced-motion")
ANIMATIONS = ("org.gnome.desktop.interface", "enable-animations")


class WithAPortal(PeerCase):
    def setUp(self):
        super().setUp()
        self.portal = self.peer("portal.py", NAME)

    def set(self, key, value):
        self.assertEqual(self.portal.ask("set", *key, value), "set")

    def test_reads_what_is_set_at_the_start(self):
        self.set(SCHEME, "uint32 1")
        probe = self.probe()
        self.assertEqual(probe.line(), "appearance dark")

    def test_follows_the_scheme(self):
        self.set(SCHEME, "uint32 2")
        probe = self.probe()
        self.assertEqual(probe.line(), "appearance light")
        self.set(SCHEME, "uint32 1")
        self.assertEqual(probe.line(), "appearance dark")
        self.set(SCHEME, "uint32 0")
        self.assertEqual(probe.line(), "appearance no preference")

    def test_follows_reduced_motion_by_either_setting(self):
        self.set(ANIMATIONS, "false")
        probe = self.probe()
        self.assertEqual(probe.line(), "appearance no preference, less motion")
        self.set(ANIMATIONS, "true")
        self.assertEqual(probe.line(), "appearance no preference")
        self.set(MOTION, "uint32 1")
        self.assertEqual(probe.line(), "appearance no preference, less motion")
        self.set(MOTION, "uint32 0")
        self.assertEqual(probe.line(), "appearance no preference")

    def test_values_that_mean_nothing_count_as_none(self):
        self.set(SCHEME, "uint32 1")
        self.set(ANIMATIONS, "'no'")
        self.set(MOTION, "uint32 7")
        probe = self.probe()
        self.assertEqual(probe.line(), "appearance dark")
        self.set(SCHEME, "'dark'")
        self.assertEqual(probe.line(), "appearance no preference")
        self.set(SCHEME, "uint32 1")
        self.assertEqual(probe.line(), "appearance dark")
        self.set(SCHEME, "uint32 9")
        self.assertEqual(probe.line(), "appearance no preference")

    def test_a_portal_that_goes_leaves_its_word_and_is_read_again_when_it_is_back(self):
        self.set(SCHEME, "uint32 1")
        probe = self.probe()
        self.assertEqual(probe.line(), "appearance dark")
        self.desktop.end(self.portal.process)
        self.assertEqual(probe.answer("appearance"), "appearance dark")
        self.portal = self.peer("portal.py", NAME)
        self.set(SCHEME, "uint32 2")
        self.assertEqual(probe.line(), "appearance light")

    def test_does_not_wait_for_a_portal_that_hangs(self):
        self.set(SCHEME, "uint32 1")
        self.portal.process.send_signal(signal.SIGSTOP)
        probe = self.probe()
        self.assertTrue(probe.is_well())
        self.assertEqual(probe.answer("appearance"), "appearance no preference")
        self.portal.process.send_signal(signal.SIGCONT)
        self.assertEqual(probe.line(), "appearance dark")


class WithoutAPortal(PeerCase):
    def test_goes_on_with_nothing_preferred_and_finds_one_that_comes(self):
        probe = self.probe()
        self.assertTrue(probe.is_well())
        self.assertEqual(probe.answer("appearance"), "appearance no preference")
        portal = self.peer("portal.py", NAME)
        self.assertEqual(portal.ask("set", *SCHEME, "uint32 1"), "set")
        self.assertEqual(probe.line(), "appearance dark")


class WithoutABus(PeerCase):
    DESKTOP = {"bus": False}

    def test_goes_on_with_nothing_preferred(self):
        probe = self.probe()
        self.assertTrue(probe.is_well())
        self.assertEqual(probe.answer("appearance"), "appearance no preference")


if __name__ == "__main__":
    unittest.main()
