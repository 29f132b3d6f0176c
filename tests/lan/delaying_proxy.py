#!/usr/bin/python3
"""Passes every connection on to another port, each piece after a while in both directions. What
is under way doesn't hold up what follows: the way is long, not narrow.

usage: delaying_proxy.py PORT TARGET-PORT ROUND-TRIP-IN-SECONDS [ADDRESS]"""

import asyncio
import selectors
import socket
import sys
from collections import deque

# Bytes under way in one direction, before the sender has to wait: 100 MB/s at 80 ms.
MOST_HELD = 8 << 20


class OneWay:
    """Holds back what one side has sent to the other."""

    def __init__(self, delay):
        self.loop = asyncio.get_running_loop()
        self.delay = delay
        self.source = None
        self.target = None
        self.held = deque()  # (due, bytes); no bytes are the end
        self.size = 0
        self.full = False  # the target's own buffer
        self.paused = False
        self.opened = 0.0  # when who sends has heard that the connection is open
        self.ended = False
        self.on_end = None

    def take(self, data):
        if self.delay == 0 and self.target:
            self._give(data)
            return
        self.held.append((max(self.loop.time(), self.opened) + self.delay, data))
        self.size += len(data)
        if len(self.held) == 1:
            self.loop.call_at(self.held[0][0], self._give_due)
        self._throttle()

    def set_target(self, target):
        self.target = target
        self._give_due()

    def _give_due(self):
        if self.target is None:
            return  # called again when it is there
        while self.held and self.held[0][0] <= self.loop.time():
            data = self.held.popleft()[1]
            self.size -= len(data)
            self._give(data)
        if self.held:
            self.loop.call_at(self.held[0][0], self._give_due)
        self._throttle()

    def _give(self, data):
        if self.target.is_closing():
            return
        if data:
            self.target.write(data)
        else:
            self.target.write_eof()
            self.ended = True
            self.on_end()

    def set_full(self, full):
        self.full = full
        self._throttle()

    def _throttle(self):
        pause = self.full or self.size > MOST_HELD
        if pause == self.paused or self.source is None or self.source.is_closing():
            return
        self.paused = pause
        if pause:
            self.source.pause_reading()
        else:
            self.source.resume_reading()


class Side(asyncio.Protocol):
    """One of the two connections: what comes in goes `out`, what goes out has come from `back`."""

    def __init__(self, out, back, lost):
        self.out = out
        self.back = back
        self.lost = lost
        self.transport = None

    def connection_made(self, transport):
        transport.max_size = 1 << 20  # asyncio reads at most so much at once
        transport.get_extra_info("socket").setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.transport = transport
        self.out.source = transport
        self.back.set_target(transport)

    def data_received(self, data):
        self.out.take(data)

    def eof_received(self):
        self.out.take(b"")
        return True  # the other direction stays open

    def pause_writing(self):
        self.back.set_full(True)

    def resume_writing(self):
        self.back.set_full(False)

    def connection_lost(self, error):
        self.lost(error)


class ClientSide(Side):
    """The one that comes first, and opens the other."""

    def __init__(self, target, delay):
        super().__init__(OneWay(delay), OneWay(delay), self._close_both)
        self.target = target
        self.other = None
        self.connecting = None
        self.out.on_end = self.back.on_end = self._close_ended

    def connection_made(self, transport):
        # That the connection is open has to go there and back first.
        self.out.opened = self.out.loop.time() + 2 * self.out.delay
        super().connection_made(transport)
        self.connecting = asyncio.ensure_future(self._connect())

    async def _connect(self):
        try:
            _, self.other = await self.out.loop.create_connection(
                lambda: Side(self.back, self.out, self._close_both), "127.0.0.1", self.target)
        except OSError:
            self.transport.abort()

    def _close_ended(self):
        if self.out.ended and self.back.ended:
            self._close_both()

    def _close_both(self, _=None):
        for side in (self, self.other):
            if side is not None and side.transport is not None:
                side.transport.close()


async def serve(port, target, delay, address="0.0.0.0"):
    server = await asyncio.get_running_loop().create_server(
        lambda: ClientSide(target, delay), address, port, backlog=128)
    await server.serve_forever()


if __name__ == "__main__":
    # select() takes fractions of a millisecond, which epoll would round up.
    LOOP = asyncio.SelectorEventLoop(selectors.SelectSelector())
    LOOP.run_until_complete(serve(int(sys.argv[1]), int(sys.argv[2]), float(sys.argv[3]) / 2,
                                  *sys.argv[4:]))
