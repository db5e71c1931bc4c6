#!/usr/bin/env python3
"""The command line of the preview: what is wrong with it is told in one line, with status 2, before
there is a window and before anything on the disk is touched."""

import os
import pathlib
import subprocess
import tempfile
import unittest

PREVIEW = os.environ["MORVANE_PREVIEW"]


class WrongOptions(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.disk = pathlib.Path(folder.name) / "disk"
        (self.disk / "root" / "Users" / "sam").mkdir(parents=True)
        (self.disk / "host.json").write_text('{"home": "/Users/sam"}')

    def refusal(self, *options):
        # Without a display: what is right with its options would fail otherwise.
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        run = subprocess.run([PREVIEW, *map(str, options)], env=environment, text=True,
                             stdin=subprocess.DEVNULL, capture_output=True)
        self.assertEqual(run.returncode, 2, run.stderr)
        self.assertEqual(run.stdout, "")
        lines = run.stderr.splitlines()
        self.assertEqual(len(lines), 1, run.stderr)
        self.assertTrue(lines[0].startswith("morvane-preview: "), lines[0])
        return lines[0]

    def test_no_disk(self):
        self.assertIn("--disk DISK", self.refusal())
        self.assertIn("--disk DISK", self.refusal("--appearance", "dark"))

    def test_an_option_that_is_unknown(self):
        self.assertIn('"--dsik"', self.refusal("--dsik", self.disk))
        self.assertIn('"extra"', self.refusal("--disk", self.disk, "extra"))
        self.assertIn('""', self.refusal("--disk", self.disk, "", ""))

    def test_an_option_without_its_value(self):
        self.assertIn("--disk needs a value", self.refusal("--disk"))
        self.assertIn("--effects needs a value", self.refusal("--disk", self.disk, "--effects"))

    def test_an_appearance_that_is_none(self):
        self.assertIn('"blue"', self.refusal("--disk", self.disk, "--appearance", "blue"))

    def test_a_disk_that_is_none(self):
        self.refusal("--disk", self.disk / "nothing")
        (self.disk / "host.json").write_text('{"home": 7}')
        self.assertIn("home", self.refusal("--disk", self.disk))

    def test_effects_that_cannot_be_written(self):
        self.assertIn("cannot be written",
                      self.refusal("--disk", self.disk, "--effects", self.disk / "no" / "file"))
        self.assertEqual(list((self.disk / "root" / "Users" / "sam").iterdir()), [])


if __name__ == "__main__":
    unittest.main()
