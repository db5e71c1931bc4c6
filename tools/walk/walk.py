#!/usr/bin/env python3
"""Walks the main job through the window on a virtual display, with real clicks and keys, leaves a
picture of each step, and checks that the disk is as it was.

usage: walk.py --preview PROGRAM --disk DISK [--by both|pointer|keyboard|names] [--scale 1|2]
               [--appearance light|dark] [--pictures FOLDER]
"""

import argparse
import pathlib
import sys

import sample
from main_job import MainJob
from preview import DesktopError, Preview, desktop
from users import USERS


def walk(program, disk, appearance="light", by="both", pictures=None, scale=1, say=print):
    """Walks once. Returns what went wrong, a line each."""
    before = sample.standing(disk)
    steps = []
    if pictures:
        pathlib.Path(pictures).mkdir(parents=True, exist_ok=True)

    with desktop(scale=scale) as on:
        # What is asked of the desktop is written down, and the disk answers in its place.
        preview = Preview(on, program, disk, appearance, effects=on.folder / "effects")

        def shown(word):
            steps.append(word)
            if pictures:
                path = pathlib.Path(pictures) / ("%s-%d-%s.png" % (appearance, len(steps), word))
                preview.picture(path)
                say("  " + str(path))

        MainJob(preview, USERS[by](preview), shown).walk()
        status = preview.close()
        said = preview.said()

    wrong = ["It ended with %s." % status] if status != 0 else []
    wrong += ["It said: " + line for line in said.splitlines()]
    wrong += ["Not as it was: " + line for line in sample.differences(before, sample.standing(disk))]
    return wrong


def main():
    parser = argparse.ArgumentParser(description="Walks the main job through the window.")
    parser.add_argument("--preview", required=True)
    parser.add_argument("--disk", required=True)
    parser.add_argument("--by", default="both", choices=USERS)
    parser.add_argument("--scale", default=1, type=float)
    parser.add_argument("--appearance", default="light", choices=["light", "dark"])
    parser.add_argument("--pictures")
    options = parser.parse_args()
    try:
        wrong = walk(options.preview, options.disk, options.appearance, options.by,
                     options.pictures, options.scale)
    except DesktopError as error:
        sys.exit("The walk stopped: %s" % error)
    for line in wrong:
        print(line, file=sys.stderr)
    print("Not all is well." if wrong else "The disk is as it was.")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
