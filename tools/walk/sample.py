"""The sample disk, and what stood on it."""

import os
import pathlib
import stat
import subprocess


def make(tool, disk, size=None, now=None):
    """Makes a sample disk as of a moment, or of this one, where there is none yet."""
    disk = pathlib.Path(disk)
    if (disk / "host.json").exists():
        return disk
    command = [str(tool), str(disk)]
    command += (["--size", size] if size else []) + (["--now", now] if now else [])
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return disk


def standing(disk):
    """What lies on a disk: for each path its kind, mode, inode, and what it holds by size, time or
    target. Left out are the program's own settings and the Trash while it is empty."""
    root = pathlib.Path(disk) / "root"
    found = {}
    for folder, folders, files in os.walk(root):
        for name in folders + files:
            path = os.path.join(folder, name)
            look = os.lstat(path)
            kind = stat.S_IFMT(look.st_mode)
            held = None
            if stat.S_ISREG(kind):
                held = (look.st_size, look.st_mtime_ns)
            elif stat.S_ISLNK(kind):
                held = os.readlink(path)
            found[os.path.relpath(path, root)] = (look.st_mode, look.st_ino, held)
    return {path: look for path, look in found.items() if not _is_own(root, path)}


def differences(before, after):
    """What is not as it was, a line each."""
    return ["%s: %s, then %s" % (path, before.get(path), after.get(path))
            for path in sorted(before.keys() | after.keys())
            if before.get(path) != after.get(path)]


def _is_own(root, path):
    name = os.path.basename(path)
    if name == ".Trash":
        return not os.listdir(root / path)
    folder = os.path.basename(os.path.dirname(path))
    return folder == "Preferences" and "morvane" in name.lower()
