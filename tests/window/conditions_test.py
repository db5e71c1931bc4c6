#!/usr/bin/env python3
"""The window where the desktop is not as one would wish, or goes away under it."""

import json
import plistlib
import signal
import subprocess
import unittest

from window_case import PREVIEW, WindowCase

from preview import PATIENCE, wait_until
from users import NamesUser

SETTINGS = "root/Users/sam/Library/Preferences/app.morvane.Morvane.plist"
FONTS = """<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>%s<cachedir>%s</cachedir></fontconfig>
"""
ONE_FONT = "/usr/share/fonts/opentype/inter/Inter-Regular.otf"


class Conditions(WindowCase):
    def bare_disk(self, name="bare", **settings):
        """A Mac with nothing on it but what is stored."""
        disk = self.folder / name
        path = disk / SETTINGS
        path.parent.mkdir(parents=True)
        (disk / "host.json").write_text(json.dumps({"home": "/Users/sam"}))
        stored = {"hasOnboarded": True, "scanSchedule": "Off", **settings}
        path.write_bytes(plistlib.dumps(stored, fmt=plistlib.FMT_BINARY))
        return disk

    @staticmethod
    def stored(disk):
        return plistlib.loads((disk / SETTINGS).read_bytes())

    def open_blind(self, on, disk, **environment):
        """The program where no screen reader listens, once its window is in front."""
        path = on.folder / "errors"
        with open(path, "w") as errors:
            process = on.start([PREVIEW, "--disk", disk, "--appearance", "light"], stderr=errors,
                               env={**on.environment, **environment})
        self.await_title(on, "Overview", process)
        return process, path

    def await_title(self, on, title, process):
        wait_until(lambda: on.title() == title, "the window " + title, alive=process)

    @staticmethod
    def xdotool(on, *words):
        """What it says, also where it finds no window."""
        return subprocess.run(["xdotool", *words], text=True, env=on.environment,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

    def windows(self, on, process):
        """The place of each of its windows on view: x, y, width, height."""
        found = []
        for window in self.xdotool(on, "search", "--onlyvisible", "--pid",
                                   str(process.pid)).split():
            told = self.xdotool(on, "getwindowgeometry", "--shell", window)
            values = dict(line.split("=") for line in told.splitlines())
            if values:
                found.append(tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")))
        return found

    def window(self, on, process):
        """The place of the one window, where there is no tray."""
        found = wait_until(lambda: self.windows(on, process), "a window on view", alive=process)
        self.assertEqual(len(found), 1)
        return found[0]

    def key(self, on, key, title, process):
        on.press_until(key, lambda: on.title() == title, "the window " + title, alive=process)

    def close(self, on, process):
        on.press_until("alt+F4", lambda: process.poll() is not None, "the end of the program")
        self.assertEqual(process.returncode, 0)

    def look_around_and_close(self, on, process):
        self.key(on, "ctrl+comma", "Settings", process)
        self.key(on, "ctrl+r", "Overview", process)
        self.close(on, process)


class WithoutASessionBus(Conditions):
    def test_WorksWithoutASessionBus(self):
        on = self.start_desktop(bus=False)
        process, errors = self.open_blind(on, self.bare_disk())
        self.look_around_and_close(on, process)
        self.assertNotIn("qrc:", errors.read_text())

    def test_WorksOnWhenTheSessionBusGoes(self):
        on = self.start_desktop()
        process, errors = self.open_blind(on, self.bare_disk())
        on.stop_bus()
        self.look_around_and_close(on, process)
        self.assertNotIn("qrc:", errors.read_text())


class WhenItsTimeIsOver(Conditions):
    """However the program comes to its end, what was begun is done, and what was set is kept."""

    @staticmethod
    def in_trash(disk):
        return {path.name for path in (disk / "root/Users/sam/.Trash").iterdir()}

    def start_sweeping(self, on):
        disk = self.disk()
        self.before = self.in_trash(disk)
        preview = self.start(on, disk)
        user = NamesUser(preview)
        user.press("push button", "Sweep")
        user.press("push button", "Review & Sweep")
        user.press("push button", "Move to Trash")
        wait_until(lambda: self.in_trash(disk) != self.before, "the first item in the Trash",
                   alive=preview.process)
        return disk, preview

    def start_with_a_switch_turned(self, on, name):
        disk = self.bare_disk(name)
        preview = self.start(on, disk)
        self.key(on, "ctrl+comma", "Settings", preview.process)
        NamesUser(preview).press("check box",
                                 "Let me know when more than 5 GB is ready to sweep")
        return disk, preview

    def assertAllIsRecorded(self, disk):
        """What came into the Trash is what the history would put back, and nothing of it stands at
        its old place as well."""
        moved = {}
        for entry in json.loads(self.stored(disk)["sweepHistory"]):
            moved.update(entry["trashed"])
        self.assertTrue(moved)
        self.assertEqual(self.in_trash(disk) - self.before,
                         {path.rsplit("/", 1)[1] for path in moved.values()})
        for original in moved:
            self.assertFalse((disk / "root" / original[1:]).exists(), original)

    def test_EndsByItselfWhenTheDisplayGoes(self):
        on = self.start_desktop()
        disk, preview = self.start_with_a_switch_turned(on, "disk")
        on.stop_display()
        # Ended by a signal, as from a crash, it would be negative.
        self.assertEqual(preview.process.wait(PATIENCE), 1)
        self.assertNotIn("qrc:", preview.said())
        self.assertIs(self.stored(disk)["remindWhenReady"], False)

    def test_RecordsASweepWhenTheDisplayGoesMeanwhile(self):
        on = self.start_desktop()
        disk, preview = self.start_sweeping(on)
        on.stop_display()
        self.assertEqual(preview.process.wait(PATIENCE), 1)
        self.assertAllIsRecorded(disk)

    def test_EndsInGoodOrderWhenASignalAsksForIt(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number):
                on = self.start_desktop()
                disk, preview = self.start_with_a_switch_turned(on, number.name)
                preview.process.send_signal(number)
                self.assertEqual(preview.process.wait(PATIENCE), 0)
                self.assertSaidNothing(preview)
                self.assertIs(self.stored(disk)["remindWhenReady"], False)

    def test_RecordsASweepWhenASignalAsksForTheEndMeanwhile(self):
        on = self.start_desktop()
        disk, preview = self.start_sweeping(on)
        preview.process.terminate()
        self.assertEqual(preview.process.wait(PATIENCE), 0)
        self.assertSaidNothing(preview)
        self.assertAllIsRecorded(disk)


class WithATray(Conditions):
    def start_tray(self, on):
        return on.start(["trayer", "--edge", "bottom", "--SetDockType", "true"],
                        stderr=subprocess.DEVNULL)

    def icon(self, on, process):
        """The middle of the icon in the tray."""
        for x, y, width, height in self.windows(on, process):
            if 8 < width < 100 and 8 < height < 100:
                return x + width // 2, y + height // 2
        return None

    def await_icon(self, on, process):
        wait_until(lambda: self.icon(on, process), "the icon in the tray", alive=process)

    def close_to_tray(self, on, process):
        on.press_until("alt+F4", lambda: on.title() != "Overview", "the window closed",
                       alive=process)

    def test_StaysInTheTrayAndComesBackFromIt(self):
        on = self.start_desktop()
        self.start_tray(on)
        process, errors = self.open_blind(on, self.bare_disk())
        self.await_icon(on, process)
        self.close_to_tray(on, process)

        def is_back():
            x, y = wait_until(lambda: self.icon(on, process), "the icon in the tray", alive=process)
            # A tray that has just come moves its icons yet, and then a press goes beside.
            on.run(["xdotool", "mousemove", x, y, "click", "1"])
            return on.title() == "Overview"

        wait_until(is_back, "the window again", alive=process)
        process.terminate()
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertEqual(errors.read_text(), "")

    def close_to_a_tray_that_vanishes(self, on, process):
        tray = self.start_tray(on)
        self.await_icon(on, process)
        self.close_to_tray(on, process)
        on.end(tray)
        self.await_title(on, "Overview", process)
        wait_until(lambda: not self.icon(on, process), "no icon", alive=process)

    def test_ComesBackWhenTheTrayThatItWasClosedToVanishes(self):
        on = self.start_desktop()
        process, errors = self.open_blind(on, self.bare_disk())
        self.close_to_a_tray_that_vanishes(on, process)
        self.close(on, process)
        self.assertNotIn("qrc:", errors.read_text())

    def test_FollowsATrayThatComesBack(self):
        on = self.start_desktop()
        process, errors = self.open_blind(on, self.bare_disk())
        for _ in range(3):
            self.close_to_a_tray_that_vanishes(on, process)
        self.close(on, process)
        self.assertNotIn("qrc:", errors.read_text())


class WithOddSettings(Conditions):
    def assertStandsWhereItCanBeSeen(self, on, process):
        left, top, width, height = self.window(on, process)
        self.assertGreaterEqual(width, 980)
        self.assertGreaterEqual(height, 640)
        self.assertGreater(left + width, 100)
        self.assertLess(left, on.size[0] - 100)
        self.assertGreaterEqual(top, 0)
        self.assertLess(top, on.size[1] - 100)

    def opens(self, disk):
        on = self.start_desktop()
        process, errors = self.open_blind(on, disk)
        self.assertStandsWhereItCanBeSeen(on, process)
        self.look_around_and_close(on, process)
        self.assertEqual(errors.read_text(), "")

    def test_StandsWhereItCanBeSeenWhateverPlaceIsStored(self):
        places = ("99999 99999 1 1", "-5000 -5000 1100 720", "nan nan inf 1e9", "x\n" * 50,
                  "9" * 10_000, ["0", "0"], 7.5)
        for number, place in enumerate(places):
            with self.subTest(str(place)[:20]):
                self.opens(self.bare_disk("disk%d" % number, mainWindowFrame=place))

    def test_OpensWhereTheSettingsAreGarbage(self):
        disk = self.bare_disk()
        for content in (b"", b"\x00" * 100, b"bplist00" + b"\xff" * 200, b"<plist><dict>"):
            with self.subTest(content[:10]):
                (disk / SETTINGS).write_bytes(content)
                self.opens(disk)

    def test_OpensWhereTheSettingsAreOfOtherTypes(self):
        keys = ("alwaysUseTrash", "ignoredFolders", "lastDiskUsage", "lastScanAt", "lastSweptAt",
                "onboardingStep", "remindWhenReady", "remindedAt", "scanSchedule", "selection",
                "showInMenuBar", "sweepHistory", "mainWindowFrame")
        for value in (float("nan"), 1e308, -1, [1, {}, []], {"a": {}}, b"\xff\x00", "x" * 10_000):
            with self.subTest(str(value)[:20]):
                disk = self.bare_disk("disk" + str(value)[:8], **dict.fromkeys(keys, value))
                self.opens(disk)

    def test_OpensWhereStoredValuesAreBeyondAllBounds(self):
        entry = {"id": "not an id", "date": 1e300, "summary": "x" * 10_000,
                 "trashed": {"/": "/", "a/../..": ""}, "restored": False}
        usage = {"totalBytes": -1e300, "freeBytes": 1e300, "measured": {"apps": -5}}
        self.opens(self.bare_disk(
            ignoredFolders=["", "/", "relative", "/" + "x" * 10_000, "/a\nb", "/\u202eabc"],
            sweepHistory=json.dumps([entry] * 100).encode(),
            lastDiskUsage=json.dumps(usage).encode(), scanSchedule="hourly"))


class WithFewFonts(Conditions):
    def start_with_fonts(self, folders):
        on = self.start_desktop()
        configuration = on.folder / "fonts.conf"
        configuration.write_text(FONTS % (
            "".join("<dir>%s</dir>" % folder for folder in folders), on.folder / "font-cache"))
        return on, self.open_blind(on, self.bare_disk(), FONTCONFIG_FILE=str(configuration))

    def test_ShowsItsWordsInTheOneFontThereIs(self):
        fonts = self.folder / "fonts"
        fonts.mkdir()
        (fonts / "one.otf").symlink_to(ONE_FONT)
        on, (process, errors) = self.start_with_fonts([fonts])
        wait_until(lambda: self.shades(on, process) > 30, "the words", alive=process)
        self.look_around_and_close(on, process)
        self.assertEqual(errors.read_text(), "")

    def test_OpensWithoutAnyFont(self):
        on, (process, errors) = self.start_with_fonts([])
        self.look_around_and_close(on, process)
        self.assertNotIn("qrc:", errors.read_text())

    def shades(self, on, process):
        """How many shades there are where the first line of the sidebar stands."""
        left, top, _, _ = self.window(on, process)
        picture = self.folder / "picture.png"
        on.run(["import", "-window", "root", "-crop", "200x120+%d+%d" % (left, top), picture])
        return len(on.run(["convert", picture, "-unique-colors", "txt:-"]).stdout.splitlines()) - 1


if __name__ == "__main__":
    unittest.main()
