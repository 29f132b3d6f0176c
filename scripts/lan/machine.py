"""One computer of the network: namespaces held by a process that does nothing."""

import os
import subprocess

from own_network import FOLDER

PREFIX = 16

# The link may be used at once, without asking whether its IPv6 address is taken.
HOLD = """echo {name} >/proc/sys/kernel/hostname
echo 0 >/proc/sys/net/ipv6/conf/default/accept_dad
mount -t proc proc /proc
mount --bind {run} /run
echo ready
exec sleep infinity"""


class Machine:
    """Its network has one card, `eth0`, with the address; its name, /proc and /run are its own too.
    Whatever runs on it is ended with `power_off` or `end`."""

    def __init__(self, name, address, number):
        self.name = name
        self.address = address
        self.folder = os.path.join(FOLDER, name)
        self._card = f"card{number}"
        run = os.path.join(self.folder, "run")
        os.makedirs(os.path.join(run, "samba"))  # nmbd looks for its socket there
        self._holder = subprocess.Popen(
            ["unshare", "--net", "--mount", "--uts", "--pid", "--fork", "--kill-child",
             "sh", "-c", HOLD.format(name=name, run=run)],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True)
        self._links = f"/proc/{self._holder.pid}/ns"
        self.is_on = True

    def connect(self, bridge):
        """Waits until the namespaces are there, and puts the card on the bridge."""
        if self._holder.stdout.readline() != "ready\n":
            raise RuntimeError(f"{self.name} can't be started")
        subprocess.run(["ip", "-batch", "-"], check=True, text=True, input=(
            f"link add {self._card} type veth peer name eth0 netns {self._holder.pid}\n"
            f"link set {self._card} master {bridge} up\n"))
        self.run("ip", "-batch", "-", text=True, input=(
            f"link set lo up\naddress add {self.address}/{PREFIX} broadcast + dev eth0\n"
            "link set eth0 up\nroute add default dev eth0\n"))

    def command(self, command):
        """The command line that runs the command on this computer."""
        return ["nsenter", f"--net={self._links}/net", f"--mount={self._links}/mnt",
                f"--uts={self._links}/uts", f"--pid={self._links}/pid_for_children", *command]

    def start(self, *command, **options):
        options = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL,
                   "stderr": subprocess.DEVNULL} | options
        return subprocess.Popen(self.command(command), **options)

    def run(self, *command, **options):
        return subprocess.run(self.command(command), **{"check": True} | options)

    def write(self, name, text):
        """Makes a file in its folder, and gives its path."""
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def drop(self, port):
        """Lets packets to the port get lost from now on."""
        self.run("nft", "-f", "-", text=True, input=(
            "table inet lost {\nchain input {\ntype filter hook input priority 0;\n"
            f"tcp dport {port} drop\n}}\n}}\n"))

    def crash(self):
        """Ends all that runs on it; it stays on the network."""
        self.run("sh", "-c", "kill -KILL -1")

    def power_off(self):
        """As when the plug is pulled: nobody on the network is told."""
        if not self.is_on:
            return
        self.is_on = False
        subprocess.run(["ip", "link", "delete", self._card], check=False,
                       stderr=subprocess.DEVNULL)
        self._holder.kill()

    def end(self):
        if self.is_on:
            self.is_on = False
            self._holder.kill()

    def wait(self):
        self._holder.wait()
        self._holder.stdout.close()
