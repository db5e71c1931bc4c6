"""What the tests of the window have in common: a sample disk and the program on a virtual display."""

import os
import pathlib
import shutil
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "tools" / "walk"))

import sample  # noqa: E402
from answers import Driver  # noqa: E402
from preview import Preview, desktop  # noqa: E402

PREVIEW = os.environ["MORVANE_PREVIEW"]
DRIVER = os.environ["MORVANE_DRIVER"]
SAMPLE_DISK = os.environ["MORVANE_SAMPLE_DISK"]


class WindowCase(unittest.TestCase):
    """A test on a small sample disk of its own."""

    maxDiff = None

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="window"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def disk(self, name="disk", now=None, **fields):
        """A sample disk that waits to be scanned by the user, with those fields as stored. Two of
        one moment `now` are alike."""
        disk = sample.make(SAMPLE_DISK, self.folder / name, size="200M", now=now)
        driver = Driver(DRIVER, disk)
        driver.ask(call="finishOnboarding", args={})
        driver.ask(wait=True)
        driver.ask(set={"schedule": "off", "selection": "overview", **fields})
        self.assertEqual(driver.close(), 0)
        return disk

    def start_desktop(self, **options):
        return self.enterContext(desktop(**options))

    def start(self, on, disk, **options):
        return Preview(on, PREVIEW, disk, **options)

    def assertSaidNothing(self, preview):
        self.assertEqual(preview.said(), "")
