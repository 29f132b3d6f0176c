"""A Samba server on loopback for the benchmarks, straight or behind a round trip."""

import os
import signal
import socket
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
LAN = os.path.join(ROOT, "scripts", "lan")
sys.path.insert(0, LAN)
from lan import wait_for_port  # noqa: E402
from samba import Samba  # noqa: E402


def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


class Server:
    """The share PUBLIC of a server of its own, in `share`; all is ended with the block. Stands for
    the machine that the server runs on, too."""

    name = "FILER"

    def __init__(self, folder):
        self.folder = folder
        self.port = free_port()
        self._samba = Samba(self, "WORKGROUP", self.port, interfaces="lo")
        self.share = self._samba.share
        self._started = []

    def start(self, *command):
        self._started.append(subprocess.Popen(command, stdin=subprocess.DEVNULL,
                                              stdout=subprocess.DEVNULL, start_new_session=True))

    def behind(self, round_trip):
        """A port where its answers take so many seconds more."""
        if round_trip == 0:
            return self.port
        port = free_port()
        self.start(sys.executable, os.path.join(LAN, "delaying_proxy.py"), str(port),
                   str(self.port), str(round_trip), "127.0.0.1")
        wait_for_port("127.0.0.1", port)
        return port

    def __enter__(self):
        self._samba.start()
        wait_for_port("127.0.0.1", self.port)
        return self

    def __exit__(self, *_):
        for process in self._started:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
