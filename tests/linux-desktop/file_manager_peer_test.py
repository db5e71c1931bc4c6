#!/usr/bin/env python3
"""Revealing: a file manager of the test's own, one that refuses, and none."""

import signal
import unittest

from opened_files import OpenedFiles
from peer_case import PeerCase

NAME = "org.freedesktop.FileManager1"


class WithAFileManager(PeerCase):
    def test_shows_the_item_by_its_url(self):
        manager = self.peer("file_manager.py", NAME)
        probe = self.probe()
        probe.do("reveal", "/disk/root/Users/sam/a b%41#ä.dmg")
        self.assertEqual(manager.line(),
                         "ShowItems file:///disk/root/Users/sam/a%20b%2541%23%C3%A4.dmg")

    def test_does_not_wait_for_one_that_hangs(self):
        manager = self.peer("file_manager.py", NAME)
        probe = self.probe()
        manager.process.send_signal(signal.SIGSTOP)
        self.assertEqual(probe.do("reveal", "/tmp/x"), [])
        self.assertTrue(probe.is_well())
        manager.process.send_signal(signal.SIGCONT)
        self.assertEqual(manager.line(), "ShowItems file:///tmp/x")


class WithoutAFileManager(PeerCase):
    def setUp(self):
        super().setUp()
        self.opened = OpenedFiles(self.desktop)
        self.folder = self.desktop.folder / "a folder%41"
        self.folder.mkdir()
        (self.folder / "item").write_text("x")

    def test_opens_the_folder_instead(self):
        probe = self.probe()
        probe.do("reveal", str(self.folder / "item"))
        self.assertEqual(self.opened.next(), "folder " + str(self.folder))

    def test_opens_the_folder_when_it_refuses(self):
        self.peer("file_manager.py", NAME, "refusing")
        probe = self.probe()
        probe.do("reveal", str(self.folder / "item"))
        self.assertEqual(self.opened.next(), "folder " + str(self.folder))


class WithoutABus(PeerCase):
    DESKTOP = {"bus": False}

    def test_opens_the_folder_instead(self):
        opened = OpenedFiles(self.desktop)
        probe = self.probe()
        probe.do("reveal", str(self.desktop.folder / "item"))
        self.assertEqual(opened.next(), "folder " + str(self.desktop.folder))
        self.assertTrue(probe.is_well())


if __name__ == "__main__":
    unittest.main()
