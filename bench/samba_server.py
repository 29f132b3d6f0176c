"""A Samba server on loopback for the benchmarks, and a proxy that adds a round trip."""

import os
import selectors
import signal
import socket
import subprocess
import threading
import time
from collections import deque

CONFIGURATION = """[global]
    server role = standalone server
    interfaces = lo
    bind interfaces only = yes
    smb ports = {port}
    disable netbios = yes
    map to guest = bad user
    guest account = nobody
    load printers = no
    log level = 0
    log file = {state}/log
    private dir = {state}
    lock directory = {state}
    state directory = {state}
    cache directory = {state}
    pid directory = {state}
    ncalrpc dir = {state}/ncalrpc
[SHARE]
    path = {share}
    guest ok = yes
"""


def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


class Server:
    """A Samba server of its own, ended with the block."""

    def __init__(self, folder, share):
        self.port = free_port()
        state = os.path.join(folder, "state")
        os.makedirs(state)
        self.config = os.path.join(state, "smb.conf")
        with open(self.config, "w", encoding="utf-8") as file:
            file.write(CONFIGURATION.format(port=self.port, state=state, share=share))

    def __enter__(self):
        self.process = subprocess.Popen(
            ["/usr/sbin/smbd", "--foreground", "--no-process-group", "-s", self.config],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, start_new_session=True)
        end = time.monotonic() + 20
        while time.monotonic() < end:
            try:
                socket.create_connection(("127.0.0.1", self.port), 1).close()
                return self
            except OSError:
                time.sleep(0.05)
        raise SystemExit("smbd doesn't answer")

    def __exit__(self, *_):
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()


class DelayingProxy(threading.Thread):
    """Passes everything on after a while; what is under way doesn't hold up what follows."""

    def __init__(self, server, round_trip):
        super().__init__(daemon=True)
        self.server = server
        self.one_way = round_trip / 2  # seconds
        self.listener = socket.create_server(("127.0.0.1", 0), backlog=64)
        self.port = self.listener.getsockname()[1]
        # The default one rounds its waits up to a millisecond, for each of many connections.
        self.selector = selectors.SelectSelector()
        self.held = deque()  # (due, socket, bytes), in the order in which they are due

    def run(self):
        self.selector.register(self.listener, selectors.EVENT_READ)
        while True:
            wait = max(self.held[0][0] - time.monotonic(), 0) if self.held else None
            for key, _ in self.selector.select(wait):
                if key.fileobj is self.listener:
                    self.accept()
                else:
                    self.take(key.fileobj, key.data)
            while self.held and self.held[0][0] <= time.monotonic():
                self.give(*self.held.popleft()[1:])

    def accept(self):
        client = self.listener.accept()[0]
        server = socket.create_connection(("127.0.0.1", self.server))
        for one, other in ((client, server), (server, client)):
            one.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            self.selector.register(one, selectors.EVENT_READ, other)

    def take(self, source, target):
        try:
            data = source.recv(1 << 20)
        except OSError:
            data = b""
        if not data:
            self.selector.unregister(source)
        self.held.append((time.monotonic() + self.one_way, target, data))

    @staticmethod
    def give(target, data):
        try:
            if data:
                target.sendall(data)
            else:
                target.shutdown(socket.SHUT_WR)
        except OSError:
            pass
