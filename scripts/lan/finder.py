"""Searches a network with netrove-find, on the computer of the network that is the client."""

import os
import shutil
import subprocess
import time
from dataclasses import dataclass


@dataclass
class Search:
    """What one run of the program has shown."""

    rows: list
    first_row: float  # seconds until then
    seconds: float = 0.0
    status: int = 0
    messages: str = ""

    def rows_of(self, computer):
        return [row for row in self.rows if row.startswith(f"\\\\{computer}\\")]

    def computers(self):
        """Whose rows came, in the order in which they came; each as often as its rows resume."""
        names = [row.split("\\")[2] for row in self.rows]
        return [name for at, name in enumerate(names) if at == 0 or names[at - 1] != name]

    def not_searched(self):
        """The computers and shares, without their first backslashes, that the messages name so."""
        begin, mark, names = self.messages.partition(" not searched: ")
        return {name.lstrip("\\") for name in names.split()} if mark else {begin} - {""}


class Finder:
    """A copy of the program in a folder of its own, beside the network.ini that it reads."""

    def __init__(self, lan, programs):
        self._client = lan.client
        self.folder = os.path.join(lan.client.folder, "program")
        os.makedirs(self.folder)
        for name in ("netrove-find", "netrove-smb"):
            shutil.copy(os.path.join(programs, name), self.folder)

    def configure(self, network_ini):
        """With None, the program has only what it finds itself."""
        path = self._client.write("program/network.ini", network_ini or "")
        if network_ini is None:
            os.remove(path)

    def search(self, *arguments, on_row=None, on_start=None, seconds=120):
        """Calls on_start(process) and on_row(row) at each row. Raises if the program takes too long."""
        result = Search([], 0.0)
        messages = os.path.join(self.folder, "messages")
        with open(messages, "w+", encoding="utf-8") as errors:
            begin = time.monotonic()
            with self._client.start(
                    "timeout", "--kill-after=1", str(seconds),
                    os.path.join(self.folder, "netrove-find"), *arguments,
                    stdout=subprocess.PIPE, stderr=errors, text=True) as process:
                if on_start:
                    on_start(process)
                for line in process.stdout:
                    result.rows.append(line.rstrip("\n"))
                    result.first_row = result.first_row or time.monotonic() - begin
                    if on_row:
                        on_row(result.rows[-1])
            result.status = process.returncode
            result.seconds = time.monotonic() - begin
            errors.seek(0)
            result.messages = errors.read()
        if result.status == 124:
            raise AssertionError(f"the search took more than {seconds} s")
        return result
