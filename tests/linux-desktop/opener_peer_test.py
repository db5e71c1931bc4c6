#!/usr/bin/env python3
"""Opening files and links: the programs the user has chosen, and none."""

import unittest

from opened_files import OpenedFiles
from peer_case import PeerCase


class WithPrograms(PeerCase):
    def setUp(self):
        super().setUp()
        self.opened = OpenedFiles(self.desktop)

    def test_opens_a_file_with_its_program(self):
        for name in ("plain.txt", "a b%41 #1?.txt", "ä.txt", "$(touch x);`touch y`'\".txt"):
            file = self.desktop.folder / name
            file.write_text("some text\n")
            self.probe().do("open", str(file))
            self.assertEqual(self.opened.next(), "text " + str(file))

    def test_opens_a_link_with_the_browser(self):
        self.probe().do("url", "https://example.invalid/a?b=c%20d#e")
        self.assertEqual(self.opened.next(), "web https://example.invalid/a?b=c%20d#e")

    def test_shows_a_link_that_leads_somewhere_on_a_mac_only(self):
        probe = self.probe()
        for link in ("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles",
                     "file:///etc/passwd", "not a link"):
            self.assertEqual(probe.do("url", link), ["link " + link])


class WithoutPrograms(PeerCase):
    def test_goes_on(self):
        empty = self.desktop.folder / "empty"
        empty.mkdir()
        probe = self.probe(env=self.environment(PATH=str(empty)))
        probe.do("open", "/tmp/x")
        probe.do("url", "https://example.invalid/")
        probe.do("reveal", "/tmp/x")
        self.assertTrue(probe.is_well())


if __name__ == "__main__":
    unittest.main()
