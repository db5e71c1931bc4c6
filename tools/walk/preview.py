"""The program in its window, on a desktop of its own."""

import pathlib
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tests" / "support"))

from virtual_desktop import PATIENCE, DesktopError, VirtualDesktop, wait_until  # noqa: E402,F401

from accessible import AccessibilityBus, Gone  # noqa: E402

SERVICES = ("org.a11y.Bus",)
# One screen's going over into the next; what moves beyond that moves by itself.
SECONDS_A_CHANGE_TAKES = 3
# The toolkit tells what it shows though no screen reader has said on this desktop that it runs.
TELLS = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}


def desktop(**options):
    """A desktop on which a screen reader can listen."""
    options.setdefault("size", (1280, 860))
    return VirtualDesktop(activatable=SERVICES, **options)


class Preview:
    """The program on `disk`, started on a desktop that `desktop` made; ends with that desktop."""

    def __init__(self, on, executable, disk, appearance="light", effects=None, **environment):
        self.desktop = on
        self.errors = on.folder / ("errors-%d" % len(list(on.folder.glob("errors-*"))))
        command = [executable, "--disk", disk, "--appearance", appearance]
        if effects:
            command += ["--effects", effects]
        self._bus = AccessibilityBus(on.environment["DBUS_SESSION_BUS_ADDRESS"])
        with open(self.errors, "w") as errors:
            self.process = on.start(command, stderr=errors,
                                    env={**on.environment, **TELLS, **environment})
        try:
            self._application = wait_until(lambda: self._bus.application(self.process.pid),
                                           "the window's accessible tree", alive=self.process)
            # Before, a key would go nowhere.
            wait_until(on.title, "the window in front", alive=self.process)
        except DesktopError as error:
            raise DesktopError("%s\n%s" % (error, self.said())) from None

    def tree(self):
        """What the window tells now."""
        def read():
            try:
                return self._application.tree()
            except Gone:
                return None  # it changed meanwhile

        return wait_until(read, "a tree that holds still", alive=self.process)

    def until(self, holds, what):
        """Returns the first true value of `holds(tree)`. Raises DesktopError, with what stood on
        the screen, when it does not come about."""
        end = time.monotonic() + PATIENCE
        while True:
            tree = self.tree()
            value = holds(tree)
            if value:
                return value
            if time.monotonic() > end:
                raise DesktopError("%s did not come about; there is\n%s"
                                   % (what, "\n".join(tree.drawn())))
            time.sleep(0.05)

    def node(self, role, name):
        """The node of that role and name, once it is there."""
        return self.until(lambda tree: tree.find(role, name), "%s %r" % (role, name))

    def starting(self, role, beginning):
        """The first node of that role whose name begins so, once it is there."""
        return self.until(lambda tree: tree.starting(role, beginning),
                          "%s %r…" % (role, beginning))

    def act(self, node, action):
        self._application.act(node, action)

    def actions(self, node):
        return self._application.actions(node)

    def picture(self, path):
        """Saves what the window in front shows, once it holds still or has moved for long."""
        window = self.desktop.run(["xdotool", "getactivewindow"]).stdout.strip()
        end = time.monotonic() + SECONDS_A_CHANGE_TAKES
        before = None
        while True:
            self.desktop.run(["import", "-window", window, "-strip", "-quality", "95", path])
            now = pathlib.Path(path).read_bytes()
            if now == before or time.monotonic() > end:
                return
            before = now
            time.sleep(0.1)

    def said(self):
        """What it has written to standard error."""
        return self.errors.read_text(errors="replace")

    def close(self):
        """Closes the window by the window manager's key, and returns the program's exit status."""
        self.desktop.press_until("alt+F4", lambda: self.process.poll() is not None,
                                 "the end of the program")
        return self.process.returncode
