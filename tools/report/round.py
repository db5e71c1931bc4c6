#!/usr/bin/env python3
"""Walks a whole round on a disk in a folder and prints what happens, for people to read.

usage: round.py MORVANE_DRIVER DISK
"""

import sys
import textwrap

from driver import Driver

CATEGORIES = [
    ("crumbs", "System Crumbs"),
    ("developer", "Developer Junk"),
    ("leftovers", "App Leftovers"),
    ("largeFiles", "Large & Old Files"),
    ("backups", "iPhone Backups"),
]
CARE = {"safe": "safe", "regenerates": "comes back", "review": "look first"}
WIDTH = 96


def heading(text):
    print("\n" + text + "\n" + "-" * len(text))


def row(left, right, indent=2):
    room = WIDTH - indent - len(right) - 1
    if len(left) > room:
        left = left[: room - 1] + "…"
    left = "".join(c if c.isprintable() else "?" for c in left)
    print(" " * indent + left.ljust(room) + " " + right)


def print_items(driver, items):
    for item in items:
        row("[%s] %s" % (CARE[item["safety"]], item["name"]), driver.size(item["bytes"]))
        print("      " + item["location"] + ("  · " + item["lastUsed"] if item["lastUsed"] else ""))
        for line in textwrap.wrap(item["explanation"], WIDTH - 6):
            print("      " + line)


def scan(driver):
    heading("Scan")
    driver.call("startScan", showOverview=True)
    figures = driver.get("categoryMB")
    for key, title in CATEGORIES:
        row(title, driver.call("sizeText", mb=figures[key]))
    row("Could go at once", driver.call("sizeText", mb=driver.get("safeMB")))

    for group in driver.get("sweepGroups"):
        heading(group["name"])
        print_items(driver, group["items"])
    for section in driver.get("devSections") or []:
        heading("Developer · " + section["name"])
        print("  " + section["subtitle"])
        print_items(driver, section["items"])


def print_large_files(driver):
    heading("Large & old files")
    driver.set(fileMinMB=100)
    files = driver.get("filteredFiles")
    for file in files[:12]:
        row(file["url"], driver.size(file["bytes"]))
    if len(files) > 12:
        print("  … and %d more" % (len(files) - 12))
    if not files:
        print("  none of 100 MB or more")


def print_disk(driver):
    heading("Disk")
    driver.call("refreshDisk")
    disk, slices = driver.get("disk", "slices")
    free = driver.call("capacityText", gb=disk["freeBytes"] / 1e9)
    row(disk["volumeName"] + ", " + free + " free", driver.size(disk["totalBytes"]))
    for part in slices:
        row(part["kind"], driver.size(part["bytes"]), 4)


def print_storage(driver):
    heading("What fills the disk")
    driver.call("scanStorage", force=True)

    def show(node, depth):
        row(node["name"], driver.size(node["bytes"]), 2 + 3 * depth)
        if depth < 3:
            for child in node["children"][:4]:
                show(child, depth + 1)

    show(driver.get("storageRoot"), 0)


def app_size(app):
    return sum(part["bytes"] for part in app["parts"])


def print_applications(driver):
    heading("Applications")
    driver.call("scanApps", force=True)
    apps = driver.get("visibleApps")
    for app in apps[:12]:
        extent = "%d thing%s" % (len(app["parts"]), "" if len(app["parts"]) == 1 else "s")
        row("%s %s · %s" % (app["name"], app["version"], extent), driver.size(app_size(app)))
    if len(apps) > 12:
        print("  … and %d more" % (len(apps) - 12))
    return apps


def print_history_and_put_back(driver):
    entry = driver.get("history")[0]
    print("  History: " + entry["summary"] + " · " +
          driver.call("sweepDateText", date=entry["date"]))
    driver.call("restore", entry=entry["id"])
    history, states, problems = driver.get("history", "historyStates", "restoreProblem")
    state = states[history[0]["id"]]
    print("  Put back: " + ("everything" if state == "putBack" else problems.get(entry["id"], state)))
    return state == "putBack"


def sweep(driver):
    heading("Sweep of what is safe")
    ids = driver.get("safeSelection")
    driver.call("sweep", items=ids)
    freed, problem = driver.get("freedMB", "sweepProblem")
    row("%d item%s to the Trash" % (len(ids), "" if len(ids) == 1 else "s"),
        driver.call("sizeText", mb=freed))
    if problem:
        print("  " + problem)
    return print_history_and_put_back(driver)


def uninstall(driver, apps):
    # One that is not open and keeps several things.
    candidates = [app for app in apps if len(app["parts"]) >= 3] or apps
    app = candidates[-1]
    heading("Uninstalling " + app["name"])
    for part in app["parts"]:
        row("%s: %s" % (part["kind"], part["url"]), driver.size(part["bytes"]))
    driver.call("uninstall", app=app["url"])
    result = driver.get("uninstallResult")
    if "failed" in result:
        print("  " + result["failed"])
        return False
    row(result["removed"]["name"] + " moved to the Trash",
        driver.call("sizeText", mb=result["removed"]["mb"]))
    return print_history_and_put_back(driver)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__.strip().splitlines()[-1])
    with Driver(sys.argv[1], sys.argv[2]) as driver:
        access = driver.get("fullDiskAccess")
        print("Morvane on %s, Full Disk Access %s" % (sys.argv[2], access))
        scan(driver)
        print_large_files(driver)
        print_disk(driver)
        print_storage(driver)
        apps = print_applications(driver)
        whole = sweep(driver)
        whole = uninstall(driver, apps) and whole
    print("\nThe disk is as it was." if whole else "\nNot everything went back.")
    sys.exit(0 if whole else 1)


main()
