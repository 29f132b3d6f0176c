"""How much memory a process and all that it has started hold together."""

import os
import threading


def children_by_parent():
    found = {}
    for name in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{name}/stat", encoding="utf-8", errors="replace") as file:
                parent = int(file.read().rpartition(")")[2].split()[1])
        except OSError:  # ended in the meantime
            continue
        found.setdefault(parent, []).append(int(name))
    return found


def descendants(process):
    children = children_by_parent()
    found, ahead = [], [process]
    while ahead:
        below = children.get(ahead.pop(), [])
        found += below
        ahead += below
    return found


def held(process):
    """(PSS, RSS) in bytes. RSS counts what processes share as often as there are processes."""
    with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as file:
        fields = dict(line.split(":", 1) for line in list(file)[1:])
    return tuple(int(fields[name].split()[0]) * 1024 for name in ("Pss", "Rss"))


class MemoryPeaks:
    """Looks every few tens of milliseconds, until `stop`, at what a process has started."""

    INTERVAL = 0.05

    def __init__(self):
        self.pss = self.rss = self.processes = 0
        self._stopped = threading.Event()
        self._thread = None

    def watch(self, process):
        self._thread = threading.Thread(target=self._watch, args=(process.pid,), daemon=True)
        self._thread.start()

    def _watch(self, process):
        while not self._stopped.wait(self.INTERVAL):
            self.look(process)

    def look(self, process):
        sizes = []
        for one in descendants(process):
            try:
                sizes.append(held(one))
            except (OSError, KeyError):  # ended in the meantime
                pass
        self.pss = max(self.pss, sum(pss for pss, _ in sizes))
        self.rss = max(self.rss, sum(rss for _, rss in sizes))
        self.processes = max(self.processes, len(sizes))

    def stop(self):
        self._stopped.set()
        self._thread.join()
