#!/usr/bin/python3
"""Finds the computers of a network with the servers that real hosts run, and one that lies.

usage: discovery_test.py FIND-COMPUTERS"""

import os
import socket
import sys
import time
import unittest

import announcers
import own_network
from lan import NETWORK, Host, Kind, Lan, wait_for_port
from rude_host import SILENT_PORT

SKIPPED = 77  # as tests/lan/CMakeLists.txt says
# The computers of the network are not the only addresses: this one is the bridge's.
OTHER = f"{NETWORK}.255.254"
HOSTS = [
    Host("Attic", workgroup="HOME", announced_by=("wsdd", "nmbd", "avahi")),
    Host("Cellar", Kind.REFUSING, domain="EXAMPLE", announced_by=("wsdd",)),
    Host("SHED", workgroup="GARDEN", announced_by=("nmbd",)),
    Host("barn", Kind.REFUSING, announced_by=("avahi",), service="Anna's files", port=1445),
    Host("rude", Kind.REFUSING),
]


class DiscoveryTest(unittest.TestCase):
    lan = finder = None

    def find(self, **environment):
        """What find-computers prints: by name in upper case, and the time of the end."""
        output = self.lan.client.run(self.finder, env=os.environ | environment, text=True,
                                     capture_output=True, timeout=20).stdout
        print(output, flush=True)
        lines = [line.split("\t") for line in output.splitlines()]
        computers = {fields[1].upper(): fields for fields in lines[:-1]}
        self.assertEqual(len(computers), len(lines) - 1, "a computer stands twice")
        self.assertLess(int(lines[-1][1]), 1700)
        return computers

    def assert_addresses(self, found, computer):
        self.assertRegex(found[computer.host.name.upper()][7],
                         f"^{computer.address} fe80::[0-9a-f:]+%eth0$")

    def test_finds_all_and_merges(self):
        # The servers need a while until they know of each other.
        end = time.monotonic() + 30
        found = self.find()
        while len(found) != 4 or not found["ATTIC"][4].endswith("netbios,dns-sd"):
            self.assertLess(time.monotonic(), end, "not all were found")
            found = self.find()
        self.assertEqual(found["ATTIC"][1:5],
                         ["Attic", "HOME", "445", "ws-discovery,netbios,dns-sd"])
        self.assertEqual(found["ATTIC"][6], announcers.MODEL)
        self.assertEqual(found["CELLAR"][1:5], ["Cellar", "EXAMPLE", "445", "ws-discovery"])
        self.assertEqual(found["SHED"][1:5], ["SHED", "GARDEN", "445", "netbios"])
        self.assertEqual(found["SHED"][6:8], ["", self.lan["SHED"].address])
        self.assertEqual(found["BARN"][1:5], ["barn", "", "1445", "dns-sd"])
        for name in ("Attic", "Cellar"):
            self.assert_addresses(found, self.lan[name])

    def test_rude_hosts_keep_nobody_off(self):
        """A host that lies, and lets many connections wait, delays none of the others; nobody is
        asked at an address that another host told."""
        rude = self.lan["rude"]
        rude.start_script("rude_host.py", rude.address, OTHER)
        wait_for_port(rude.address, SILENT_PORT)
        with socket.create_server((OTHER, 5357)) as other:
            other.setblocking(False)
            found = self.find()
            self.assertRaises(BlockingIOError, other.accept)
        rude.machine.crash()
        self.assertTrue({"ATTIC", "CELLAR", "SHED"} <= set(found))
        self.assertNotIn("RUDE", found)

    def test_works_without_a_bus(self):
        found = self.find(DBUS_SYSTEM_BUS_ADDRESS="unix:path=/no-such-bus")
        self.assertIn("CELLAR", found)
        self.assertNotIn("BARN", found)


if __name__ == "__main__":
    LACKS = own_network.missing() or ", ".join(announcers.missing())
    if LACKS:
        print(f"skipped: needs {LACKS}")
        sys.exit(SKIPPED)
    own_network.enter()
    DiscoveryTest.finder = sys.argv.pop()
    with Lan(HOSTS, client_avahi=True) as DiscoveryTest.lan:
        unittest.main()
