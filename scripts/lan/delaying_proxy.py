#!/usr/bin/python3
"""Passes every connection on to another port, each piece after a while in both directions. What
is under way doesn't hold up what follows: the way is long, not narrow.

usage: delaying_proxy.py PORT TARGET-PORT ROUND-TRIP-IN-SECONDS [ADDRESS]"""

import heapq
import itertools
import selectors
import socket
import sys
import time


class DelayingProxy:
    def __init__(self, port, target, round_trip, address="0.0.0.0"):
        self.target = target
        self.one_way = round_trip / 2
        self.listener = socket.create_server((address, port), backlog=128)
        # The default one rounds its waits up to a millisecond, for each of many connections.
        self.selector = selectors.SelectSelector()
        self.selector.register(self.listener, selectors.EVENT_READ)
        self.held = []  # (due, number, socket, bytes), a heap; no bytes are the end
        self.numbers = itertools.count()

    def run(self):
        while True:
            wait = max(self.held[0][0] - time.monotonic(), 0) if self.held else None
            for key, _ in self.selector.select(wait):
                if key.fileobj is self.listener:
                    self.accept()
                else:
                    self.take(key.fileobj, *key.data)
            while self.held and self.held[0][0] <= time.monotonic():
                self.give(*heapq.heappop(self.held)[2:])

    def accept(self):
        client = self.listener.accept()[0]
        try:
            server = socket.create_connection(("127.0.0.1", self.target))
        except OSError:
            client.close()
            return
        # That the connection is open has to go there and back first.
        opened = time.monotonic() + 2 * self.one_way
        for one, other in ((client, server), (server, client)):
            one.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            self.selector.register(one, selectors.EVENT_READ, (other, opened))

    def take(self, source, target, opened):
        try:
            data = source.recv(1 << 20)
        except OSError:
            data = b""
        if not data:
            self.selector.unregister(source)
        due = max(time.monotonic(), opened) + self.one_way
        heapq.heappush(self.held, (due, next(self.numbers), target, data))

    @staticmethod
    def give(target, data):
        try:
            if data:
                target.sendall(data)
            else:
                target.shutdown(socket.SHUT_WR)
        except OSError:
            pass


if __name__ == "__main__":
    PORT, TARGET, ROUND_TRIP, *ADDRESS = sys.argv[1:]
    DelayingProxy(int(PORT), int(TARGET), float(ROUND_TRIP), *ADDRESS).run()
