#!/usr/bin/env python3
"""The main job in the real window: scan, look at a row, sweep, put back; the disk is as it was, the
program ends well, and nothing stands on its standard error."""

import unittest

from window_case import PREVIEW, WindowCase

import walk


class MainJobInTheWindow(WindowCase):
    def walk_by(self, by, appearance="light"):
        seen = []
        wrong = walk.walk(PREVIEW, self.disk(), appearance, by, pictures=self.folder / "pictures",
                          say=seen.append)
        self.assertEqual(wrong, [])
        self.assertEqual(len(seen), 7)
        for path in seen:
            self.assertGreater((self.folder / path.strip()).stat().st_size, 10_000)

    def test_WalksTheMainJobByPointerAndKeyboardInLight(self):
        self.walk_by("both", "light")

    def test_WalksTheMainJobByPointerAndKeyboardInDark(self):
        self.walk_by("both", "dark")

    def test_DoesTheMainJobByKeyboardAlone(self):
        self.walk_by("keyboard")

    def test_DoesTheMainJobThroughAssistiveNamesAlone(self):
        self.walk_by("names")


if __name__ == "__main__":
    unittest.main()
