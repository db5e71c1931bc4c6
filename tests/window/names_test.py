#!/usr/bin/env python3
"""A disk whose names are very long, run in other directions, or hold breaks and controls: it is
scanned, looked through and listed in the settings, and each name stays in its row and is told
whole."""

import json
import plistlib
import unittest

from window_case import WindowCase

from users import NamesUser, PointerUser

DEVICES = {
    "long": "iPhone of " + "W" * 10_000,
    "words": "an iPhone " * 1_000,
    "right-to-left": "אייפון של " * 200,
    "turned": "iPhone \u202eevil\u2067 of Sam",
    "lines": "iPhone\nof\r\nSam\u2028Miller\ttoo",
    "controls": "iPhone\x1b[31m\x7f of \x01Sam",
    "piled-up": "iPhone Z" + "\u0301" * 2_000,
}
FOLDERS = ["/Users/sam/" + "/".join(["n" * 255] * 3), "/Users/sam/שלום " + "עולם " * 20,
           "/Users/sam/two\nlines\x01", "/Users/sam/right\u202eto left"]


class OddNames(WindowCase):
    def odd_disk(self):
        disk = self.folder / "disk"
        home = disk / "root/Users/sam"
        for number, (name, device) in enumerate(DEVICES.items()):
            backup = home / "Library/Application Support/MobileSync/Backup" / name
            backup.mkdir(parents=True)
            (backup / "Info.plist").write_bytes(plistlib.dumps(
                {"Device Name": device}, fmt=plistlib.FMT_BINARY))
            (backup / "data").write_bytes(b"x" * (100_000 * (number + 1)))
        for folder in FOLDERS:
            (disk / "root" / folder[1:]).mkdir(parents=True, exist_ok=True)
        settings = home / "Library/Preferences/app.morvane.Morvane.plist"
        settings.parent.mkdir()
        settings.write_bytes(plistlib.dumps(
            {"hasOnboarded": True, "scanSchedule": "Off",
             "ignoredFolders": [folder.replace("\x01", "") for folder in FOLDERS]},
            fmt=plistlib.FMT_BINARY))
        (disk / "host.json").write_text(json.dumps(
            {"home": "/Users/sam", "fullDiskAccess": "granted"}))
        return disk

    def rows(self, tree):
        """The rows of a list on view, without those of the sidebar."""
        window = tree.children[0]
        return [node for node in window.all("list item") if node.box[0] > window.box[0] + 200]

    def assertStandApart(self, rows, window):
        """Each within the window's width, none in another's place, and what a row holds within
        the row."""
        left, _, width, _ = window.box
        boxes = sorted((row.box for row in rows), key=lambda box: box[1])
        for x, y, wide, high in boxes:
            self.assertGreaterEqual(x, left)
            self.assertLessEqual(x + wide, left + width)
            self.assertGreater(high, 20)
        for upper, lower in zip(boxes, boxes[1:]):
            self.assertLessEqual(upper[1] + upper[3], lower[1] + 1)
        for row in rows:
            x, y, wide, high = row.box
            for part in list(row.walk())[1:]:
                self.assertGreaterEqual(part.box[0], x, part.name[:30])
                self.assertGreaterEqual(part.box[1], y, part.name[:30])
                self.assertLessEqual(part.box[0] + part.box[2], x + wide, part.name[:30])
                self.assertLessEqual(part.box[1] + part.box[3], y + high, part.name[:30])

    def test_KeepsOddNamesInTheirRowsAndTellsThemWhole(self):
        on = self.start_desktop()
        preview = self.start(on, self.odd_disk())
        user = NamesUser(preview)
        user.press("push button", "Sweep")
        user.press("push button", "iPhone Backups")
        preview.node("heading", "Sweep")

        for device in DEVICES.values():
            preview.starting("list item", device)
        tree = preview.tree()
        self.assertStandApart(self.rows(tree)[1:], tree.children[0])

        row = preview.starting("list item", DEVICES["long"])
        user.press_node(row)
        preview.until(lambda tree: tree.starting("push button", "Reveal in Finder, "
                                                 + DEVICES["long"]), "the open row")
        PointerUser(preview).press("list item", "Settings")
        for folder in FOLDERS:
            folder = folder.replace("\x01", "")
            preview.until(lambda tree: [each for each in self.rows(tree) if folder.replace(
                "/Users/sam", "~") in each.name], folder[:40])
        tree = preview.tree()
        self.assertStandApart(self.rows(tree), tree.children[0])
        self.assertEqual(preview.close(), 0)
        self.assertSaidNothing(preview)


if __name__ == "__main__":
    unittest.main()
