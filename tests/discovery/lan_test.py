#!/usr/bin/env python3
"""Finds the hosts of a LAN that this test makes: network namespaces on a bridge, with the servers
that real hosts run. Usage: lan_test.py FIND_COMPUTERS.

All of it lives in namespaces of the test's own, of processes too: whatever happens, it ends with
the test, and not a packet gets out."""

import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import unittest

SKIPPED = 77
FINDER_HOST = "10.77.0.1"
NEEDED = ["unshare", "nsenter", "ip", "wsdd", "nmbd", "avahi-daemon", "dbus-daemon"]

BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <listen>unix:path={folder}/bus</listen>
  <policy context="default">
    <allow user="*"/><allow own="*"/>
    <allow send_destination="*"/><allow receive_sender="*"/>
  </policy>
</busconfig>
"""

AVAHI = """[server]
host-name={name}
enable-dbus={dbus}
[publish]
publish-workstation=no
"""

SERVICES = """<?xml version="1.0"?><!DOCTYPE service-group SYSTEM "avahi-service.dtd">
<service-group><name>{service}</name>
<service><type>_smb._tcp</type><port>{port}</port></service>
<service><type>_device-info._tcp</type><port>0</port>
<txt-record>model=Barn door</txt-record></service>
</service-group>
"""

NMBD = """[global]
    netbios name = {name}
    workgroup = {workgroup}
    interfaces = eth0
    bind interfaces only = yes
    lock directory = {folder}
    state directory = {folder}
    cache directory = {folder}
    pid directory = {folder}
    private dir = {folder}
    log file = {folder}/log
"""


def run(*command):
    subprocess.run([str(word) for word in command], check=True)


def wait_for(condition, what):
    """Waits until the condition holds, 10 seconds at most."""
    end = time.monotonic() + 10
    while not condition():
        if time.monotonic() > end:
            raise AssertionError("waited in vain for " + what)
        time.sleep(0.02)


class Host:
    """A namespace with one interface on the bridge, and servers in it."""

    def __init__(self, name, number, folder):
        self.name = name
        self.folder = folder / name
        self.folder.mkdir()
        self.holder = subprocess.Popen(["unshare", "--net", "--mount", "sleep", "infinity"])
        own = os.readlink("/proc/self/ns/net")
        wait_for(lambda: os.readlink(f"/proc/{self.holder.pid}/ns/net") != own, "a namespace")
        run("ip", "link", "add", f"to{number}", "type", "veth", "peer", "eth0", "netns",
            self.holder.pid)
        run("sysctl", "-qw", f"net.ipv6.conf.to{number}.disable_ipv6=1")
        run("ip", "link", "set", f"to{number}", "master", "lan", "up")
        self.run("mount", "-t", "tmpfs", "tmpfs", "/run")
        self.run("ip", "link", "set", "lo", "up")
        self.run("sysctl", "-qw", "net.ipv6.conf.eth0.accept_dad=0")
        self.run("ip", "address", "add", f"10.77.0.{number}/24", "broadcast", "+", "dev", "eth0")
        self.run("ip", "link", "set", "eth0", "up")

    def inside(self, *command):
        return ["nsenter", f"--target={self.holder.pid}", "--net", "--mount", *map(str, command)]

    def run(self, *command):
        run(*self.inside(*command))

    def start(self, *command):
        name = pathlib.Path(command[0]).name
        with open(self.folder / f"{name}.out", "w", encoding="utf-8") as output:
            return subprocess.Popen(self.inside(*command), stdout=output, stderr=output)

    def wsdd(self, number, *options):
        self.start("wsdd", "-p", "-i", "eth0", "-n", self.name, "-U",
                   f"00000000-0000-4000-8000-{number:012}", *options)

    def nmbd(self, workgroup):
        configuration = self.folder / "smb.conf"
        configuration.write_text(NMBD.format(name=self.name, workgroup=workgroup, folder=self.folder), encoding="utf-8")
        self.run("mkdir", "/run/samba")
        self.start("nmbd", "--foreground", "--no-process-group", "-s", configuration)

    def avahi(self, service, port):
        services = self.folder / "services"
        services.mkdir()
        (services / "smb.service").write_text(SERVICES.format(service=service, port=port),
                                              encoding="utf-8")
        self.run("mount", "--bind", services, "/etc/avahi/services")
        self.start(*avahi_command(self.folder, self.name, "no"))

    def listens(self, port):
        listing = subprocess.run(self.inside("ss", "-Hlun", f"sport = :{port}"), check=True,
                                 capture_output=True, text=True)
        return listing.stdout.strip() != ""


def avahi_command(folder, name, dbus):
    configuration = folder / "avahi.conf"
    configuration.write_text(AVAHI.format(name=name, dbus=dbus), encoding="utf-8")
    return ["avahi-daemon", "--no-drop-root", "--no-chroot", "--no-rlimits", "-f",
            str(configuration)]


class LanTest(unittest.TestCase):
    finder = ""

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.folder, ignore_errors=True)
        run("mount", "-t", "tmpfs", "tmpfs", "/run")
        run("ip", "link", "set", "lo", "up")
        run("ip", "link", "add", "lan", "address", "02:00:00:00:00:01", "type", "bridge",
            "mcast_snooping", "0")
        run("sysctl", "-qw", "net.ipv6.conf.lan.accept_dad=0")
        run("ip", "address", "add", f"{FINDER_HOST}/24", "broadcast", "+", "dev", "lan")
        run("ip", "link", "set", "lan", "up")
        cls.start_own_avahi()

        attic, cellar, shed, barn = (Host(name, number, cls.folder) for number, name in
                                     enumerate(["Attic", "Cellar", "SHED", "barn"], start=2))
        attic.wsdd(2, "-w", "HOME")
        attic.nmbd("HOME")
        attic.avahi("ATTIC", 445)
        cellar.wsdd(3, "-d", "EXAMPLE")
        shed.nmbd("GARDEN")
        barn.avahi("Anna's files", 1445)
        for host, port in [(attic, 3702), (attic, 137), (attic, 5353), (cellar, 3702),
                           (shed, 137), (barn, 5353)]:
            wait_for(lambda host=host, port=port: host.listens(port), f"{host.name} at {port}")

    @classmethod
    def start_own_avahi(cls):
        """The finder's own daemon, and a system bus of the test's own to reach it by."""
        configuration = cls.folder / "bus.conf"
        configuration.write_text(BUS.format(folder=cls.folder), encoding="utf-8")
        subprocess.Popen(["dbus-daemon", "--nofork", f"--config-file={configuration}"])
        wait_for((cls.folder / "bus").exists, "the bus")
        with open(cls.folder / "avahi.out", "w", encoding="utf-8") as output:
            subprocess.Popen(avahi_command(cls.folder, "finder", "yes"), env=cls.environment(),
                             stdout=output, stderr=output)

    @classmethod
    def environment(cls, bus="bus"):
        return os.environ | {"DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={cls.folder}/{bus}"}

    def find(self, bus="bus"):
        """What find-computers prints: by name in upper case, and the time of the end."""
        output = subprocess.run([self.finder], env=self.environment(bus), check=True,
                                capture_output=True, text=True, timeout=20).stdout
        print(output, flush=True)
        lines = [line.split("\t") for line in output.splitlines()]
        computers = {fields[1].upper(): fields for fields in lines[:-1]}
        self.assertEqual(len(computers), len(lines) - 1, "a computer stands twice")
        self.assertLess(int(lines[-1][1]), 1700)
        return computers

    def test_finds_all_and_merges(self):
        # The servers need a while until they know of each other.
        found = {}

        def is_complete():
            nonlocal found
            found = self.find()
            return (len(found) == 4 and found["ATTIC"][4].endswith("netbios,dns-sd"))
        end = time.monotonic() + 30
        while not is_complete():
            self.assertLess(time.monotonic(), end, "not all were found")

        _, name, group, port, ways, _, model, addresses = found["ATTIC"]
        self.assertEqual([name, group, port, ways, model],
                         ["Attic", "HOME", "445", "ws-discovery,netbios,dns-sd", "Barn door"])
        self.assertEqual(addresses.split(" ")[0], "10.77.0.2")
        self.assertRegex(addresses, r" fe80::[0-9a-f:]+%lan$")

        self.assertEqual(found["CELLAR"][1:5], ["Cellar", "EXAMPLE", "445", "ws-discovery"])
        self.assertRegex(found["CELLAR"][7], r"^10\.77\.0\.3 fe80::[0-9a-f:]+%lan$")
        self.assertEqual(found["SHED"][1:8],
                         ["SHED", "GARDEN", "445", "netbios", found["SHED"][5], "", "10.77.0.4"])
        self.assertEqual(found["BARN"][1:5], ["barn", "", "1445", "dns-sd"])

    def test_works_without_a_bus(self):
        found = self.find("no-such-bus")
        self.assertIn("CELLAR", found)
        self.assertNotIn("BARN", found)

    def test_rude_hosts_keep_nobody_off(self):
        """A host that lies, and lets many connections wait, delays none of the others; nobody is
        asked at an address that another host told."""
        rude = Host("rude", 6, self.folder)
        here = pathlib.Path(__file__).parent
        rude.start(sys.executable, here / "rude_host.py", "10.77.0.6", FINDER_HOST)
        wait_for(lambda: rude.listens(3702), "the rude host")
        with socket.create_server((FINDER_HOST, 5357)) as other:
            other.setblocking(False)
            found = self.find()
            self.assertRaises(BlockingIOError, other.accept)
        self.assertTrue({"ATTIC", "CELLAR", "SHED"} <= set(found))
        self.assertNotIn("RUDE", found)


def main():
    finder = sys.argv[1]
    if sys.argv[2:] != ["--inside"]:
        missing = [name for name in NEEDED if shutil.which(name) is None]
        if os.geteuid() != 0 or missing:
            print("Skipped: needs root, and", ", ".join(missing) or "nothing else")
            return SKIPPED
        os.execvp("unshare", ["unshare", "--net", "--mount", "--pid", "--mount-proc", "--fork",
                              "--kill-child", sys.executable, __file__, finder, "--inside"])
    LanTest.finder = finder
    result = unittest.main(argv=sys.argv[:1], exit=False, warnings="ignore").result
    return 0 if result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
