"""The SMB server of one computer of the network."""

import os
import subprocess

# Of every server that tests start; tests/smb/SambaServer.cpp takes it too.
TEMPLATE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "smb.conf")
GUESTS = "    map to guest = bad user\n    guest ok = yes"
# Whoever has no password learns nothing, not even which shares there are.
USERS_ONLY = "    map to guest = never\n    restrict anonymous = 2\n    guest ok = no"


class Samba:
    """smbd with everything it keeps in the computer's folder, and one share, PUBLIC."""

    def __init__(self, machine, workgroup, port=445, guests=True, netbios=False,
                 interfaces="eth0 lo"):
        self.machine = machine
        self.share = os.path.join(machine.folder, "public")
        state = os.path.join(machine.folder, "state")
        os.makedirs(self.share, exist_ok=True)
        os.makedirs(state)
        with open(TEMPLATE, encoding="utf-8") as file:
            text = file.read()
        for name, value in (("NAME", machine.name), ("WORKGROUP", workgroup), ("PORT", port),
                            ("INTERFACES", interfaces), ("STATE", state),
                            ("NO_NETBIOS", "no" if netbios else "yes")):
            text = text.replace(f"%{name}%", str(value))
        text += GUESTS if guests else USERS_ONLY
        self.configuration = os.path.join(state, "smb.conf")
        with open(self.configuration, "w", encoding="utf-8") as file:
            file.write(f"{text}\n[PUBLIC]\n    path = {self.share}\n")

    def start(self, daemon="smbd"):
        self.machine.start(daemon, "--foreground", "--no-process-group",
                           f"--configfile={self.configuration}")

    def add_user(self, user, password):
        """A user whom this computer alone knows."""
        with open("/etc/passwd", encoding="utf-8") as known:
            users = self.machine.write("passwd", known.read() + f"{user}:x:4711:4711::/:/bin/false\n")
        self.machine.run("mount", "--bind", users, "/etc/passwd")
        self.machine.run("pdbedit", f"--configfile={self.configuration}", "--create",
                         "--password-from-stdin", f"--user={user}", text=True,
                         input=f"{password}\n{password}\n", stdout=subprocess.DEVNULL)
