"""The programs a user has chosen for folders, texts and links, on a desktop of a test's own: each
writes down what it is started with."""

import os

from peer_case import wait_until

ENTRY = """[Desktop Entry]
Type=Application
Name={name}
Exec={program} {name} %u
"""

PROGRAM = """#!/bin/sh
# Into a file of its own under another name first, so that a reader sees whole ones only.
part=$(mktemp "{folder}/part.XXXXXX")
printf '%s' "$*" > "$part"
mv "$part" "$part.opened"
"""

KINDS = {"folder": "inode/directory", "text": "text/plain", "web": "x-scheme-handler/https",
         "mail": "x-scheme-handler/mailto"}


class OpenedFiles:
    def __init__(self, desktop):
        self._folder = desktop.folder / "opened"
        self._folder.mkdir()
        program = self._folder / "note-down"
        program.write_text(PROGRAM.format(folder=self._folder))
        program.chmod(0o755)
        applications = desktop.folder / "home/data/applications"
        applications.mkdir(parents=True)
        lines = ["[Default Applications]"]
        for name, kind in KINDS.items():
            entry = applications / (name + ".desktop")
            entry.write_text(ENTRY.format(name=name, program=program))
            lines.append("%s=%s.desktop" % (kind, name))
        (desktop.folder / "home/config/mimeapps.list").write_text("\n".join(lines) + "\n")

    def next(self):
        """What was opened next, with which of the programs."""
        found = wait_until(lambda: sorted(self._folder.glob("*.opened"), key=os.path.getmtime),
                           "something opened")
        text = os.fsdecode(found[0].read_bytes())
        found[0].unlink()
        return text
