#!/usr/bin/python3
"""Starts the built program as a user does, on a display with a window manager, and searches the
sample network: it shows its rows, refuses to close while it searches, and closes afterwards."""

import argparse
import contextlib
import os
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../../scripts"))
from desktop import Desktop, Program, wait_for  # noqa: E402


# scripts/run brings the build at hand up to date before it starts the program.
START_SECONDS = 120
# What the program excludes from searches as long as nobody has changed it.
EXCLUDED = ("Windows", "WinNT", "Temp", "Temporary Internet Files")


def expected_files(programs, pattern):
    """How many the console program finds, which has a test of its own against the disk."""
    excluded = [word for name in EXCLUDED for word in ("--exclude", name)]
    return subprocess.run(
        [os.path.join(programs, "netrove-find"), "--from", "Sample Network", *excluded, pattern],
        check=True, text=True, stdout=subprocess.PIPE).stdout.count("\n")


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
        files = expected_files(programs, "*.mp3")
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
