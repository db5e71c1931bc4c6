#!/usr/bin/env python3
"""Checks who includes whom.

The folders of src/ are layers; one may include itself and what stands below it, never a neighbour
or what stands above. What must not delete may not name the type that deletes.

usage: include_order.py TREE
"""

import pathlib
import re
import sys

# From the ground up; the folders of one line are neighbours.
LAYERS = [
    ["model"],
    ["tasks"],  # stands on model for one alias, the instant
    ["platform"],
    ["scanners", "measure", "removal", "services"],
    ["core"],
    ["ui"],
    ["app"],
]
RANK = {folder: rank for rank, folders in enumerate(LAYERS) for folder in folders}

# Who may name the one interface by which anything leaves the disk.
MAY_REMOVE = {"platform", "removal", "core"}
# What is left of model and tasks being neighbours.
TASKS_MAY_TAKE = {"model/instant.h"}

# Who may name the toolkit: the window, and what of the desktop it is the library for.
TOOLKIT_FOLDERS = ("ui/", "app/", "platform/linux/", "services/feed/")

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
TOOLKIT = re.compile(r"^\s*#\s*include\s*<(Q[A-Z]\w*|Qt\w*/.*)>", re.MULTILINE)


def complaints(source, tree):
    folder = source.relative_to(tree / "src").parts[0]
    text = source.read_text()
    for included in INCLUDE.findall(text):
        target = included.split("/")[0]
        if target not in RANK:
            yield "includes %s, which is in no layer" % included
        elif RANK[target] > RANK[folder] or (RANK[target] == RANK[folder] and target != folder):
            yield "reaches from %s to %s" % (folder, included)
        if folder == "tasks" and target == "model" and included not in TASKS_MAY_TAKE:
            yield "takes %s along" % included
        if included == "platform/remover.h" and folder not in MAY_REMOVE:
            yield "must not delete, but names the remover"
    place = source.relative_to(tree / "src").as_posix()
    if not place.startswith(TOOLKIT_FOLDERS) and TOOLKIT.search(text):
        yield "includes a toolkit"


def main():
    tree = pathlib.Path(sys.argv[1])
    sources = [path for path in (tree / "src").rglob("*") if path.suffix in (".h", ".cpp", ".mm")]
    assert len(sources) > 50, "the tree was not found"
    found = ["%s %s" % (source.relative_to(tree), complaint)
             for source in sorted(sources) for complaint in complaints(source, tree)]
    print("\n".join(found) or "%d files keep the order" % len(sources))
    sys.exit(1 if found else 0)


main()
