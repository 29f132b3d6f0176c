#!/usr/bin/python3
"""A local area network of computers with SMB servers, some of them faulty, on one bridge. Needs
to be root. As a program, keeps a small one for a command, which sees it from one more computer:

usage: lan.py COMMAND [ARGUMENT]...      for instance: lan.py smbclient -N -L //ATTIC
"""

import enum
import os
import socket
import subprocess
import sys
import time
from dataclasses import dataclass, field

import announcers
import own_network
from machine import PREFIX, Machine
from samba import Samba

HERE = os.path.dirname(os.path.abspath(__file__))
BRIDGE = "lan0"
NETWORK = "10.77"
USER, PASSWORD = "anna", "Blue kettle 7"
# Where the real server is when the port of SMB is a proxy's.
HIDDEN_PORT = 4450


class Kind(enum.Enum):
    ORDINARY = "lets guests in"
    DROPPING = "is there, but packets to its SMB port get lost"
    SILENT = "takes connections and says nothing"
    OFF = "isn't there"
    REFUSING = "is there, without an SMB server"
    NO_LOGON = "lets nobody in"
    PASSWORD = "lets in only USER with PASSWORD"


SERVING = {Kind.ORDINARY, Kind.DROPPING, Kind.NO_LOGON, Kind.PASSWORD}


@dataclass
class Host:
    """What is wanted of one computer."""

    name: str
    kind: Kind = Kind.ORDINARY
    workgroup: str = "WORKGROUP"
    files: list = field(default_factory=list)  # paths in its share PUBLIC
    round_trip: float = 0.0  # seconds that an answer takes on its way
    announced_by: tuple = ()  # "wsdd", "nmbd", "avahi"
    domain: str = ""  # announced instead of the workgroup
    service: str = ""  # the name that avahi announces; else the computer's
    port: int = 445  # that avahi announces


class Computer:
    """One host of a network that runs."""

    def __init__(self, host, number):
        self.host = host
        self.address = f"{NETWORK}.{number // 250}.{number % 250 + 1}"
        self.machine = self.samba = None
        if host.kind is Kind.OFF:
            return
        self.machine = Machine(host.name, self.address, number)
        if host.kind in SERVING:
            self.samba = Samba(self.machine, host.workgroup,
                               HIDDEN_PORT if host.round_trip else 445,
                               guests=host.kind in (Kind.ORDINARY, Kind.DROPPING),
                               netbios="nmbd" in host.announced_by)
            for name in host.files:
                self.add_file(name)

    def add_file(self, name, content=b"some content"):
        path = os.path.join(self.samba.share, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content)

    def start(self):
        if self.samba:
            if self.host.kind is Kind.PASSWORD:
                self.samba.add_user(USER, PASSWORD)
            self.samba.start()
        if self.host.kind is Kind.SILENT:
            # The kernel takes the connections; nobody needs to.
            self.machine.start(sys.executable, "-c", "import signal, socket\n"
                               "port = socket.create_server(('', 445), backlog=1024)\n"
                               "signal.pause()")
        elif self.host.round_trip:
            self.start_script("delaying_proxy.py", 445, HIDDEN_PORT, self.host.round_trip)
        if "wsdd" in self.host.announced_by:
            announcers.start_wsdd(self.machine, self.host.workgroup, self.host.domain)
        if "nmbd" in self.host.announced_by:
            self.samba.start("nmbd")
        if "avahi" in self.host.announced_by:
            announcers.start_avahi(self.machine, self.host.service or self.host.name,
                                   self.host.port)

    def start_script(self, script, *arguments):
        self.machine.start(sys.executable, os.path.join(HERE, script), *map(str, arguments))

    def finish_start(self):
        """Waits until it can be reached, and then lets its packets get lost if it is to."""
        if self.samba or self.host.kind is Kind.SILENT:
            ports = {445, HIDDEN_PORT} if self.host.round_trip else {445}
            for port in ports:
                wait_for_port(self.address, port)
        if self.host.kind is Kind.DROPPING:
            self.machine.drop(445)


def wait_for_port(address, port, seconds=60):
    end = time.monotonic() + seconds
    while True:
        try:
            socket.create_connection((address, port), 1).close()
            return
        except OSError:
            if time.monotonic() > end:
                raise
            time.sleep(0.02)


class Lan:
    """The network, from entry to exit. To be used after own_network.enter() alone."""

    def __init__(self, hosts, client_avahi=False):
        self._hosts = hosts
        self._client_avahi = client_avahi
        self.computers = {}
        self.client = None

    def __enter__(self):
        try:
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def _start(self):
        # All multicasts go to all, as on a plain switch.
        subprocess.run(["ip", "-batch", "-"], check=True, text=True, input=(
            f"link set lo up\nlink add {BRIDGE} type bridge mcast_snooping 0\n"
            f"address add {NETWORK}.255.254/{PREFIX} dev {BRIDGE}\nlink set {BRIDGE} up\n"))
        self.client = Machine("CLIENT", f"{NETWORK}.255.1", len(self._hosts))
        for number, host in enumerate(self._hosts):
            self.computers[host.name] = Computer(host, number)
        self.client.connect(BRIDGE)
        if self._client_avahi:
            announcers.start_avahi(self.client)
        present = [one for one in self.computers.values() if one.machine]
        for computer in present:
            computer.machine.connect(BRIDGE)
            computer.start()
        for computer in present:
            computer.finish_start()

    def __exit__(self, *_):
        machines = [one.machine for one in self.computers.values() if one.machine]
        machines += [self.client] if self.client else []
        for machine in machines:
            machine.end()
        for machine in machines:
            machine.wait()
        subprocess.run(["ip", "link", "delete", BRIDGE], check=False)

    def __getitem__(self, name):
        return self.computers[name]

    def network_ini(self, names=None, find=False):
        """A network.ini that names computers, or all, with their workgroups and addresses; with
        `find` the network is asked for others too."""
        lines = ["[LAN]", "Type=smb", f"Find={'Yes' if find else 'No'}"]
        for number, one in enumerate(map(self.computers.get, names or self.computers), 1):
            lines.append(f"Computer{number}={one.host.name}|{one.host.workgroup}|"
                         f"{one.address}:445")
        return "\n".join(lines) + "\n"


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    lacks = own_network.missing()
    if lacks:
        sys.exit(f"lan.py needs {lacks}")
    own_network.enter()
    hosts = [Host("ATTIC", files=["one.mp3", "Music/two.mp3"], announced_by=("wsdd",)),
             Host("BARN", files=["three.mp3"], round_trip=0.01, announced_by=("nmbd",)),
             Host("CELLAR", Kind.PASSWORD, files=["four.mp3"], announced_by=("avahi",)),
             Host("DEN", Kind.DROPPING, announced_by=("wsdd",)),
             Host("EAVES", Kind.SILENT, announced_by=("wsdd",))]
    with Lan(hosts, client_avahi=True) as lan:
        ini = lan.client.write("network.ini", lan.network_ini())
        print(f"The computers are in {ini}; {USER} has the password '{PASSWORD}' at CELLAR.",
              file=sys.stderr)
        status = lan.client.run(*sys.argv[1:], stdin=None, check=False).returncode
    sys.exit(status)


if __name__ == "__main__":
    main()
