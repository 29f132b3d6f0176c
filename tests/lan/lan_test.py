#!/usr/bin/python3
"""Searches a network of healthy, slow and faulty computers, with the servers that real hosts run
and one that lies, with the built netrove-find: every healthy one gives its rows, every other one costs
a limited time, and nobody says a word.

usage: lan_test.py FOLDER, that of the programs"""

import os
import socket
import sys
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "scripts", "lan"))

import announcers
import own_network
from finder import Finder
from lan import NETWORK, PASSWORD, USER, Host, Kind, Lan, wait_for_port
from rude_host import SILENT_PORT

RUDE_HOST = os.path.join(os.path.dirname(os.path.abspath(__file__)), "rude_host.py")
SKIPPED = 77  # as tests/lan/CMakeLists.txt says

MUSIC = ["one.mp3", "Music/two.mp3", "Music/Live/three.mp3", "notes.txt"]
# Those that die have so much that it can't have been read when their first rows are printed.
MANY = [f"Album {album:02}/song {song}.mp3" for album in range(60) for song in range(3)]

HOSTS = [
    Host("Attic", files=MUSIC, announced_by=("wsdd", "nmbd", "avahi")),
    Host("BARN", files=MUSIC, round_trip=0.01, announced_by=("nmbd",)),
    Host("CELLAR", Kind.DROPPING, files=MUSIC, announced_by=("wsdd",)),
    Host("DEN", Kind.SILENT, announced_by=("wsdd",)),
    Host("EAVES", Kind.OFF),
    Host("FOYER", Kind.REFUSING, domain="EXAMPLE", announced_by=("wsdd",)),
    Host("GARAGE", files=MANY, round_trip=0.04, announced_by=("wsdd",)),
    Host("HALL", Kind.NO_LOGON, files=MUSIC, announced_by=("wsdd",)),
    Host("JETTY", files=MANY, round_trip=0.04, announced_by=("wsdd",)),
    Host("LOFT", Kind.PASSWORD, files=MUSIC, announced_by=("wsdd",)),
    Host("nook", Kind.REFUSING, announced_by=("avahi",), service="Anna's files", port=1445),
    Host("PORCH", files=MUSIC, workgroup="GARDEN", announced_by=("avahi",)),
    Host("rude", Kind.REFUSING),
    Host("SHED", files=MUSIC, workgroup="GARDEN", announced_by=("wsdd",)),
]
ANNOUNCED = {host.name.upper() for host in HOSTS if host.announced_by}
DEAD = ["CELLAR", "DEN", "EAVES", "FOYER", "nook", "rude"]
CLOSED = ["HALL", "LOFT"]
CRASHING, UNPLUGGED = DYING = ["GARAGE", "JETTY"]
# The most that one computer may hold up a search: 1.5 s for the port,
# 3 s for the first answer, and what a busy machine adds.
MOST_PER_DEAD = 6.0
# The same for all of them together: they are asked side by side.
MOST_SIDE_BY_SIDE = 5.0
# A computer that falls silent in the middle: 3 s until that is noticed, 1.5 s for the port, and what
# a busy machine adds.
MOST_FOR_UNPLUGGED = 8.0


def expected(host):
    return sorted(f"\\\\{host.name}\\PUBLIC\\" + name.replace("/", "\\")
                  for name in host.files if name.endswith(".mp3"))


def healthy(but=()):
    return [host for host in HOSTS
            if host.kind is Kind.ORDINARY and host.name not in but]


def names(hosts):
    """In the order of the network: workgroup by workgroup, and in these as configured."""
    places = list(dict.fromkeys(host.workgroup for host in HOSTS))
    return [host.name for host in sorted(hosts, key=lambda host: places.index(host.workgroup))]


class DiscoveryTest(unittest.TestCase):
    lan = programs = None

    def find(self, **environment):
        """What find-computers prints: by name in upper case, and the time of the end."""
        output = self.lan.client.run(
            os.path.join(self.programs, "find-computers"), env=os.environ | environment, text=True,
            capture_output=True, timeout=20).stdout
        print(output, flush=True)
        lines = [line.split("\t") for line in output.splitlines()]
        computers = {fields[1].upper(): fields for fields in lines[:-1]}
        self.assertEqual(len(computers), len(lines) - 1, "a computer stands twice")
        self.assertLess(int(lines[-1][1]), 1700)
        return computers

    def test_finds_all_and_merges(self):
        # The servers need a while until they know of each other.
        end = time.monotonic() + 30
        found = self.find()
        while set(found) != ANNOUNCED or not found["ATTIC"][4].endswith("netbios,dns-sd"):
            self.assertLess(time.monotonic(), end, "not all were found")
            found = self.find()
        self.assertEqual(found["ATTIC"][1:6], ["Attic", "WORKGROUP", "445",
                                               "ws-discovery,netbios,dns-sd", announcers.MODEL])
        self.assertEqual(found["FOYER"][1:5], ["FOYER", "EXAMPLE", "445", "ws-discovery"])
        self.assertEqual(found["BARN"][1:], ["BARN", "WORKGROUP", "445", "netbios", "",
                                             self.lan["BARN"].address])
        self.assertEqual(found["NOOK"][1:5], ["nook", "", "1445", "dns-sd"])
        for name in ("Attic", "FOYER"):
            self.assertRegex(found[name.upper()][6],
                             f"^{self.lan[name].address} fe80::[0-9a-f:]+%eth0$")

    def test_rude_hosts_keep_nobody_off(self):
        """A host that lies, and lets many connections wait, delays none of the others; nobody is
        asked at an address that another host told."""
        rude = self.lan["rude"]
        other = f"{NETWORK}.255.254"  # the bridge's
        rude.start_script(RUDE_HOST, rude.address, other)
        wait_for_port(rude.address, SILENT_PORT)
        with socket.create_server((other, 5357)) as ear:
            ear.setblocking(False)
            found = self.find()
            self.assertRaises(BlockingIOError, ear.accept)
        rude.machine.crash()
        self.assertEqual(set(found), ANNOUNCED)

    def test_works_without_a_bus(self):
        found = self.find(DBUS_SYSTEM_BUS_ADDRESS="unix:path=/no-such-bus")
        self.assertEqual(set(found), ANNOUNCED - {"NOOK", "PORCH"})


class LanTest(unittest.TestCase):
    lan = finder = None

    def search(self, silent=None, **options):
        """`silent` has the names that the program is to tell as not searched; by default any of
        the faulty computers'."""
        found = self.finder.search("*.mp3", **options)
        self.assertLessEqual(found.messages.count("\n"), 1, found.messages)
        told = found.not_searched()
        self.assertEqual(told, told & set(DEAD + CLOSED) if silent is None else set(silent))
        return found

    def assert_rows(self, found, hosts):
        for host in hosts:
            self.assertEqual(sorted(found.rows_of(host.name)), expected(host), host.name)

    def test_1_configured(self):
        self.finder.configure(self.lan.network_ini())
        found = self.search(DEAD + CLOSED)
        self.assert_rows(found, healthy())
        self.assertEqual(found.computers(), names(healthy()))
        self.assertEqual(found.status, 0)

        self.finder.configure(self.lan.network_ini(names(healthy())))
        without = self.search([])
        self.assertEqual(sorted(without.rows), sorted(found.rows))
        self.assertLess(found.seconds - without.seconds, MOST_SIDE_BY_SIDE)

    def test_2_one_faulty_computer(self):
        for name in DEAD + CLOSED:
            with self.subTest(name, kind=self.lan[name].host.kind.value):
                self.finder.configure(self.lan.network_ini([name]))
                found = self.search([name])
                self.assertEqual((found.rows, found.status), ([], 1))
                self.assertLess(found.seconds, MOST_PER_DEAD)

    def test_3_logon(self):
        """LOFT lets nobody in but its user; a wrong password shows nothing."""
        self.finder.configure(self.lan.network_ini(["LOFT"]))
        for password, rows in (("wrong", []), (PASSWORD, expected(self.lan["LOFT"].host))):
            logon = self.lan.client.write("logon", f"username = {USER}\npassword = {password}\n")
            os.chmod(logon, 0o600)
            found = self.finder.search("--logon-file", logon, "*.mp3")
            self.assertEqual((sorted(found.rows), found.not_searched()),
                             (rows, set() if rows else {"LOFT"}))

    def test_3_found(self):
        self.finder.configure(None)
        found = self.search()
        self.assert_rows(found, healthy())
        # No computer comes in pieces, and no workgroup among those that tell theirs.
        self.assertEqual(len(found.computers()), len(healthy()))
        places = [self.lan[name].host.workgroup for name in found.computers() if name != "PORCH"]
        self.assertLessEqual(sum(one != other for one, other in zip(places, places[1:])), 1)

    def test_4_dying_in_the_middle(self):
        """Runs last: nobody gets up again."""
        self.finder.configure(self.lan.network_ini())
        strikes = {CRASHING: self.lan[CRASHING].machine.crash,
                   UNPLUGGED: self.lan[UNPLUGGED].machine.power_off}
        seen = dict.fromkeys(DYING, 0)
        begin = {}
        end = []

        def strike(row):
            name = row.split("\\")[2]
            if name in seen:
                seen[name] += 1
                if seen[name] == 7:
                    begin[name] = time.monotonic()
                    strikes[name]()
            elif UNPLUGGED in begin:
                end.append(time.monotonic())

        in_part = [name + "\\PUBLIC" for name in DYING]
        found = self.search(DEAD + CLOSED + in_part, on_row=strike)
        self.assert_rows(found, healthy(but=DYING))
        self.assertEqual(found.computers(), names(healthy()))
        for name in DYING:
            rows = found.rows_of(name)
            self.assertLess(len(rows), len(MANY))
            self.assertLessEqual(set(rows), set(expected(self.lan[name].host)))
        self.assertLess(begin[UNPLUGGED] - begin[CRASHING], MOST_PER_DEAD)
        self.assertLess(end[0] - begin[UNPLUGGED], MOST_FOR_UNPLUGGED)
        again = self.search(DEAD + CLOSED + list(DYING))
        self.assert_rows(again, healthy(but=DYING))
        self.assertEqual(again.computers(), names(healthy(but=DYING)))


if __name__ == "__main__":
    LACKS = own_network.missing() or ", ".join(announcers.missing())
    if LACKS:
        print(f"skipped: needs {LACKS}")
        sys.exit(SKIPPED)
    own_network.enter()
    DiscoveryTest.programs = sys.argv.pop()
    with Lan(HOSTS, client_avahi=True) as LanTest.lan:
        DiscoveryTest.lan = LanTest.lan
        LanTest.finder = Finder(LanTest.lan, DiscoveryTest.programs)
        unittest.main()
