#!/usr/bin/env python3
"""A desktop of a test's own: a virtual display, a session bus, a window manager.

    with VirtualDesktop() as desktop:
        peer = desktop.start(["dunst"])
        desktop.run(["dunstctl", "history"])

or, for one command, which ends with that command's status:

    virtual_desktop.py [--size 1280x800] [--without bus] [--without window-manager]
                       [--activatable NAME]… -- COMMAND ARGUMENT…

Nothing of the user's own desktop is reached: the home folder, the runtime folder and all settings
are empty folders that go afterwards. The bus starts no service by itself but those named as
activatable, so that a peer is there exactly when a test started it. Whatever was started ends with
the block, whether it ends well, by an exception or by a signal; a child also ends when this process
is killed outright. Only for the main thread of a process that starts no other children.
"""

import argparse
import contextlib
import ctypes
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

# Long enough for a machine that is busy with other things; nothing waits it out that goes well.
PATIENCE = 120
# After that long a key counts as lost.
SECONDS_A_KEY_MAY_TAKE = 5

PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
LIBC = ctypes.CDLL(None, use_errno=True)

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={folder}/bus</listen>
  <servicedir>{folder}/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
SERVICES = pathlib.Path("/usr/share/dbus-1/services")


class DesktopError(Exception):
    """Something that the desktop is made of did not start, or ended too early."""


def wait_until(holds, what, alive=None):
    """Returns the first true value of `holds()`. Raises DesktopError when the process `alive` has
    ended before, or when patience runs out."""
    end = time.monotonic() + PATIENCE
    while True:
        value = holds()
        if value:
            return value
        if alive is not None and alive.poll() is not None:
            raise DesktopError("%s: %s ended with %s" % (what, alive.args, alive.returncode))
        if time.monotonic() > end:
            raise DesktopError("%s did not come about" % what)
        time.sleep(0.02)


def _end_with_parent():
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0)


def _children():
    found = []
    for task in pathlib.Path("/proc/self/task").iterdir():
        with contextlib.suppress(OSError):
            found += [int(pid) for pid in (task / "children").read_text().split()]
    return found


class VirtualDesktop:
    """See the head of this file. `environment` is what a program on this desktop is started with;
    `display` is the display's name. `folder` is a scratch folder that goes with the desktop.
    `scale` is what programs of the toolkit take as the screen's pixel ratio."""

    def __init__(self, size=(1280, 800), bus=True, window_manager=True, activatable=(), scale=1):
        self.size = size
        self.wants_bus = bus
        self.wants_window_manager = window_manager
        self.activatable = activatable
        self.scale = scale
        self.environment = {}
        self.display = None
        self.folder = None
        self._processes = []
        self._handlers = {}

    def __enter__(self):
        LIBC.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self._handlers[number] = signal.signal(number, self._interrupted)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="desktop"))
        try:
            self._make_environment()
            self._start_display()
            if self.wants_bus:
                self._start_bus()
            if self.wants_window_manager:
                self._start_window_manager()
        except BaseException:
            self.__exit__(None, None, None)
            raise
        return self

    def __exit__(self, *_):
        for number in self._handlers:
            signal.signal(number, signal.SIG_IGN)
        for process in self._processes[::-1]:
            self.end(process)
        self._end_strays()
        shutil.rmtree(self.folder, ignore_errors=True)
        for number, handler in self._handlers.items():
            signal.signal(number, handler)

    def start(self, command, **options):
        """Starts a program on this desktop and returns its Popen. It ends with the desktop."""
        options.setdefault("env", self.environment)
        options.setdefault("stdin", subprocess.DEVNULL)
        process = subprocess.Popen([str(part) for part in command], preexec_fn=_end_with_parent,
                                   **options)
        self._processes.append(process)
        return process

    def run(self, command, **options):
        """Runs a program on this desktop to its end and returns the CompletedProcess, with its
        standard output as text. Raises DesktopError when it fails."""
        process = self.start(command, stdout=subprocess.PIPE, text=True, **options)
        output, _ = process.communicate()
        self._processes.remove(process)
        if process.returncode != 0:
            raise DesktopError("%s ended with %s: %s" % (command, process.returncode, output))
        return subprocess.CompletedProcess(process.args, process.returncode, output)

    def title(self):
        """The title of the window in front; nothing where there is none."""
        told = self.start(["xdotool", "getactivewindow", "getwindowname"], text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        title = told.communicate()[0].strip()
        self._processes.remove(told)
        return title

    def press_until(self, key, holds, what, alive=None):
        """Presses a key until `holds()`, and returns its first true value. A window manager that is
        just told of another keyboard listens for none of its keys, so one press may be lost."""
        def pressed():
            self.run(["xdotool", "key", key])
            end = time.monotonic() + SECONDS_A_KEY_MAY_TAKE
            while True:
                value = holds()
                if value or time.monotonic() > end:
                    return value
                if alive is not None and alive.poll() is not None:
                    return None  # as the wait for it says
                time.sleep(0.02)

        return wait_until(pressed, what, alive=alive)

    def end(self, process):
        """Ends a program that `start` started, and returns once it is gone."""
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(2)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        for stream in (process.stdin, process.stdout, process.stderr):
            if stream is not None:
                with contextlib.suppress(OSError):  # what is left to write goes nowhere
                    stream.close()
        if process in self._processes:
            self._processes.remove(process)

    def stop_display(self):
        """Takes the display away under the programs that show windows on it."""
        self.end(self._display_process)

    def stop_bus(self):
        """Takes the session bus away under the programs that are connected to it."""
        self.end(self._bus_process)

    def has_name(self, name):
        """Whether somebody on the bus owns that name."""
        answer = self.run(["dbus-send", "--session", "--print-reply=literal",
                           "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
                           "org.freedesktop.DBus.NameHasOwner", "string:" + name])
        return "true" in answer.stdout

    def start_peer(self, command, name, **options):
        """Starts a program and returns its Popen once it owns `name` on the bus."""
        process = self.start(command, **options)
        wait_until(lambda: self.has_name(name), "a peer named %s" % name, alive=process)
        return process

    def _make_environment(self):
        keep = ("PATH", "LANG", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS",
                "QT_LOGGING_RULES", "LD_LIBRARY_PATH")
        self.environment = {name: os.environ[name] for name in keep if name in os.environ}
        self.environment.setdefault("LANG", "C.UTF-8")
        folders = {"HOME": "home", "XDG_RUNTIME_DIR": "runtime", "XDG_CONFIG_HOME": "home/config",
                   "XDG_DATA_HOME": "home/data", "XDG_CACHE_HOME": "home/cache",
                   "XDG_STATE_HOME": "home/state"}
        for name, place in folders.items():
            (self.folder / place).mkdir(mode=0o700)
            self.environment[name] = str(self.folder / place)
        # Without a bus a library would start one of its own from the runtime folder.
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=%s/bus" % self.folder
        self.environment["NO_AT_BRIDGE"] = "1"  # the toolkits of peers look for no screen reader
        self.environment["QT_QPA_PLATFORM"] = "xcb"
        if self.scale != 1:
            self.environment["QT_SCALE_FACTOR"] = str(self.scale)

    def _start_display(self):
        reading, writing = os.pipe()
        with open(reading) as pipe:
            process = self.start(
                ["Xvfb", "-displayfd", writing, "-screen", "0", "%dx%dx24" % self.size,
                 "-nolisten", "tcp", "-noreset", "+extension", "GLX", "-dpi", "96"],
                pass_fds=(writing,), stderr=subprocess.DEVNULL)
            os.close(writing)
            number = pipe.readline().strip()
        if not number:
            raise DesktopError("Xvfb did not start")
        self._display_process = process
        self.display = ":" + number
        self.environment["DISPLAY"] = self.display

    def _start_bus(self):
        (self.folder / "services").mkdir()
        for name in self.activatable:
            os.symlink(SERVICES / (name + ".service"), self.folder / "services" / (name + ".service"))
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(folder=self.folder))
        process = self.start(["dbus-daemon", "--nofork", "--print-address",
                              "--config-file", configuration],
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        address = process.stdout.readline().decode().strip()
        if not address:
            raise DesktopError("the session bus did not start")
        self._bus_process = process
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address

    def _start_window_manager(self):
        started = self.folder / "window-manager"
        process = self.start(["openbox", "--sm-disable", "--startup", "touch %s" % started],
                             stdout=subprocess.DEVNULL,
                             stderr=subprocess.DEVNULL)
        wait_until(started.exists, "the window manager", alive=process)

    def _interrupted(self, number, _):
        raise SystemExit(128 + number)

    @staticmethod
    def _end_strays():
        """Ends what programs of this desktop have started and left behind: it became ours."""
        while True:
            for pid in _children():
                with contextlib.suppress(OSError):
                    os.kill(pid, signal.SIGKILL)
            try:
                os.waitpid(-1, 0)
            except ChildProcessError:
                return


def main():
    parser = argparse.ArgumentParser(description="Runs a command on a desktop of its own.")
    parser.add_argument("--size", default="1280x800")
    parser.add_argument("--scale", default=1, type=float)
    parser.add_argument("--without", action="append", default=[], choices=["bus", "window-manager"])
    parser.add_argument("--activatable", action="append", default=[], metavar="NAME")
    parser.add_argument("command", nargs="+")
    options = parser.parse_args()
    size = tuple(int(part) for part in options.size.split("x"))
    with VirtualDesktop(size=size, bus="bus" not in options.without,
                        window_manager="window-manager" not in options.without,
                        activatable=options.activatable, scale=options.scale) as desktop:
        sys.exit(desktop.start(options.command).wait())


if __name__ == "__main__":
    main()
