"""What the tests of one peer each have in common: a desktop of the test's own, the probe on it, and
peers that must start for the test to say anything."""

import os
import pathlib
import queue
import subprocess
import sys
import threading
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "support"))

from virtual_desktop import PATIENCE, DesktopError, VirtualDesktop, wait_until  # noqa: E402,F401

PROBE = os.environ["DESKTOP_PROBE"]
PEER_PYTHON = os.environ["PEER_PYTHON"]


class Spoken:
    """A program on the desktop that is told a line and answers with lines."""

    def __init__(self, desktop, command, **options):
        self.process = desktop.start(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     text=True, **options)
        self._lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()

    def tell(self, *words):
        self.process.stdin.write("\t".join(words) + "\n")
        self.process.stdin.flush()

    def line(self):
        """The next line it says. Raises DesktopError when it has ended instead."""
        try:
            line = self._lines.get(timeout=PATIENCE)
        except queue.Empty:
            raise DesktopError("%s says nothing" % self.process.args) from None
        if line is None:
            raise DesktopError("%s ended with %s" % (self.process.args, self.process.wait()))
        return line

    def ask(self, *words):
        """Tells it and returns the next line."""
        self.tell(*words)
        return self.line()

    def _read(self):
        for line in self.process.stdout:
            self._lines.put(line.rstrip("\n"))
        self._lines.put(None)


class Probe(Spoken):
    """The program under test, on that desktop."""

    def __init__(self, desktop, **options):
        super().__init__(desktop, [PROBE], **options)
        line = self.line()
        if line != "ready":
            raise DesktopError("the probe said " + line)

    def do(self, *words):
        """Tells it to do something and returns once the call is over; what comes of it is said
        later. Returns what it said before the call was over."""
        self.tell(*words)
        before = []
        while True:
            line = self.line()
            if line == "returned":
                return before
            before.append(line)

    def answer(self, *words):
        """What comes of it, whether at once or later."""
        said = self.do(*words)
        return said[0] if said else self.line()

    def is_well(self):
        """Whether its loop turns."""
        return self.answer("turn") == "turned"


class PeerCase(unittest.TestCase):
    """A test on a desktop of its own; what it wants of the desktop stands in `DESKTOP`."""

    DESKTOP = {}

    def setUp(self):
        self.desktop = self.enterContext(VirtualDesktop(**self.DESKTOP))

    def probe(self, **options):
        return Probe(self.desktop, **options)

    def peer(self, script, name, *arguments):
        """One of the peers beside this file, once it is on the bus as `name`."""
        peer = Spoken(self.desktop, [PEER_PYTHON, HERE / "peers" / script, *arguments])
        wait_until(lambda: self.desktop.has_name(name), name, alive=peer.process)
        return peer

    def environment(self, **variables):
        return {**self.desktop.environment, **variables}
