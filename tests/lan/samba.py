"""The SMB server of one computer of the network."""

import os
import subprocess

CONFIGURATION = """[global]
    netbios name = {name}
    workgroup = {workgroup}
    server role = standalone server
    interfaces = {interfaces}
    bind interfaces only = yes
    smb ports = {port}
    disable netbios = {no_netbios}
    local master = no
    guest account = nobody
    passdb backend = tdbsam:{state}/passwords.tdb
    load printers = no
    disable spoolss = yes
    printing = bsd
    printcap name = /dev/null
    rpc start on demand helpers = yes
    server multi channel support = no
    log level = 0
    log file = {state}/log
    private dir = {state}
    lock directory = {state}
    state directory = {state}
    cache directory = {state}
    pid directory = {state}
    ncalrpc dir = {state}/ncalrpc
{logons}
[PUBLIC]
    path = {share}
"""
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
        self.configuration = os.path.join(state, "smb.conf")
        os.makedirs(self.share, exist_ok=True)
        os.makedirs(state)
        with open(self.configuration, "w", encoding="utf-8") as file:
            file.write(CONFIGURATION.format(
                name=machine.name, workgroup=workgroup, port=port, state=state, share=self.share,
                interfaces=interfaces, no_netbios="no" if netbios else "yes",
                logons=GUESTS if guests else USERS_ONLY))

    def start(self):
        self.machine.start("smbd", "--foreground", "--no-process-group",
                           f"--configfile={self.configuration}")

    def start_nmbd(self):
        self.machine.start("nmbd", "--foreground", "--no-process-group",
                           f"--configfile={self.configuration}")

    def add_user(self, user, password):
        """A user whom this computer alone knows."""
        users = os.path.join(self.machine.folder, "passwd")
        with open("/etc/passwd", encoding="utf-8") as known, \
                open(users, "w", encoding="utf-8") as file:
            file.write(known.read() + f"{user}:x:4711:4711::/nonexistent:/usr/sbin/nologin\n")
        self.machine.run("mount", "--bind", users, "/etc/passwd")
        self.machine.run("pdbedit", f"--configfile={self.configuration}", "--create",
                         "--password-from-stdin", f"--user={user}", text=True,
                         input=f"{password}\n{password}\n", stdout=subprocess.DEVNULL)
