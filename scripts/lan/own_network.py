"""Runs a script in namespaces of its own, so that it may build a network as it likes: nothing of
the machine's network is seen or touched, and with its end the kernel ends whatever it started."""

import os
import shutil
import signal
import subprocess
import sys

MARK = "NETROVE_LAN"
# Mounted as memory for the run alone, so that no file stays behind either.
FOLDER = "/srv"
TOOLS = ["unshare", "nsenter", "setpriv", "mount", "ip", "nft", "smbd"]


def missing():
    """What a network can't be built without here; an empty text if it can."""
    if os.geteuid() != 0:
        return "to be root"
    absent = [tool for tool in TOOLS if not shutil.which(tool)]
    if absent:
        return "the programs " + ", ".join(absent)
    tried = subprocess.run(["unshare", "--net", "--mount", "--pid", "--fork", "true"],
                           stderr=subprocess.DEVNULL, check=False)
    return "" if tried.returncode == 0 else "to be allowed to make namespaces"


def is_outside():
    return MARK not in os.environ


def enter():
    """Gives back at once in the namespaces. Outside, runs the script there and ends with it."""
    if not is_outside():
        # The first process of a PID namespace isn't ended by a signal that it doesn't handle.
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
        subprocess.run(["mount", "-t", "tmpfs", "-o", "mode=755", "lan", FOLDER], check=True)
        without_name_server()
        return
    sys.exit(run_inside([sys.executable, *sys.argv]))


def without_name_server():
    """Questions for names are refused at once: the machine's name servers can't be reached here,
    and whoever asked them would wait."""
    configuration = os.path.join(FOLDER, "resolv.conf")
    with open(configuration, "w", encoding="utf-8") as file:
        file.write("nameserver 127.0.0.1\n")
    subprocess.run(["mount", "--bind", configuration, "/etc/resolv.conf"], check=True)


def run_inside(command):
    """Runs the command in new namespaces and gives back its status. Whatever it started ends with
    the namespace of processes, even if this one is killed."""
    process = subprocess.Popen(
        ["setpriv", "--pdeathsig", "KILL", "unshare", "--net", "--mount", "--uts", "--pid",
         "--fork", "--kill-child", "--mount-proc", *command], env=os.environ | {MARK: "inside"})
    stopped_by = []

    def stop(number, _):
        stopped_by.append(number)
        process.kill()

    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, stop)
    status = process.wait()
    return 128 + stopped_by[0] if stopped_by else status
