#!/usr/bin/python3
"""Starts the built program as a user does, on a display with a window manager, and searches the
sample network: it shows its rows, refuses to close while it searches, and closes afterwards."""

import argparse
import contextlib
import os
import subprocess
import sys
import time

from desktop import Desktop, Program, wait_for


# scripts/run brings the build at hand up to date before it starts the program.
START_SECONDS = 120
# What the program excludes from searches as long as nobody has changed it.
EXCLUDED = {"windows", "winnt", "temp", "temporary internet files"}


def expected_files(sample, suffix):
    """The files of the sample network that a search can reach."""
    faults = {}
    section = None
    with open(os.path.join(sample, "sample-network.ini"), encoding="utf-8") as lines:
        for line in lines:
            line = line.strip()
            if line.startswith("["):
                section = line.strip("[]")
            elif line.lower().startswith("fault=") and line.split("=", 1)[1] != "slow":
                faults[section] = line.split("=", 1)[1]
    count = 0
    for folder, folders, files in os.walk(sample):
        folders[:] = [name for name in folders if name.lower() not in EXCLUDED]
        node = "/".join(os.path.relpath(folder, sample).split(os.sep)[:3])
        if any(node == fault or node.startswith(fault + "/") for fault in faults):
            continue
        if node.endswith("$"):  # a hidden share: only its path leads there
            continue
        if node.count("/") == 2:
            count += sum(1 for name in files if name.lower().endswith(suffix))
    return count


def caption(program, beginning):
    return program.find("label", beginning).get_name()


def start_search(desktop, program, pattern):
    desktop.click(*program.centre(program.find("combo box", "")))
    desktop.keys("ctrl+a")
    desktop.type(pattern)
    desktop.keys("Return")


@contextlib.contextmanager
def settings_aside(path):
    """Lets the program start without the settings that its user may have here."""
    kept = path + ".kept"
    if os.path.exists(path):
        os.replace(path, kept)
    try:
        yield
    finally:
        if os.path.exists(path):
            os.remove(path)
        if os.path.exists(kept):
            os.replace(kept, path)


def run(source, preset, screenshots):
    programs = os.path.join(source, "build", preset, "bin")
    sample = os.path.join(programs, "sample-network")
    with settings_aside(os.path.join(programs, "netrove.ini")), Desktop(screenshots) as desktop:
        netrove = desktop.start([os.path.join(source, "scripts/run"), preset], stderr=None)
        wait_for("the window", lambda: netrove.poll() is not None or desktop.windows("Netrove"),
                 START_SECONDS)
        assert netrove.poll() is None, f"scripts/run ended with {netrove.returncode}"
        program = Program("netrove")
        program.find("push button", "Start Searching")
        # A first start has a skin, which paints the close box.
        close_box = program.centre(program.find("push button", "Close"))
        time.sleep(0.5)  # the first paint has no event of its own to wait for
        desktop.screenshot("1-started")

        start_search(desktop, program, "*.mp3")
        wait_for("rows", lambda: caption(program, "Search in progress. "))
        desktop.screenshot("2-searching")
        summary = wait_for("the summary", lambda: caption(program, "Returned "), 60)
        desktop.screenshot("3-found")
        files = expected_files(sample, ".mp3")
        assert files > 50, f"only {files} files in the sample network"
        assert summary.startswith(f"Returned {files} files in "), (summary, files)

        start_search(desktop, program, "*")
        wait_for("rows", lambda: caption(program, "Search in progress. "))
        desktop.click(*close_box)
        desktop.window("Search In Progress")
        time.sleep(0.3)
        desktop.screenshot("4-close-refused")
        desktop.keys("Return")
        summary = wait_for("the summary", lambda: caption(program, "Returned "), 60)
        assert netrove.poll() is None, "the window closed during the search"

        desktop.click(*close_box)
        assert netrove.wait(timeout=10) == 0, f"ended with {netrove.returncode}"
        desktop.screenshot("5-closed")


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--source", required=True)
    parser.add_argument("--preset", required=True, help="of the build that is started")
    parser.add_argument("--screenshots", required=True)
    options = parser.parse_args()
    try:
        run(options.source, options.preset, options.screenshots)
    except (AssertionError, subprocess.SubprocessError) as failure:
        sys.exit(f"display test: {failure}")
