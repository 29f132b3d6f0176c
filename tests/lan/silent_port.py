#!/usr/bin/python3
"""Lets anybody connect to a port and never says a word.

usage: silent_port.py PORT"""

import signal
import socket
import sys

# The kernel takes the connections; nobody needs to.
with socket.create_server(("0.0.0.0", int(sys.argv[1])), backlog=1024):
    signal.pause()
