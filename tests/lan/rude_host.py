#!/usr/bin/env python3
"""A host that answers probes of WS-Discovery with lies and never says what it is. Usage:
rude_host.py OWN_ADDRESS OTHER_ADDRESS, which nobody may be sent to. It is there as soon as its silent
port is."""

import re
import socket
import struct
import sys

GROUP, PORT = "239.255.255.250", 3702
SILENT_PORT = 5400

MATCH = """<s:Envelope xmlns:s="http://www.w3.org/2003/05/soap-envelope"
 xmlns:a="http://schemas.xmlsoap.org/ws/2004/08/addressing"
 xmlns:d="http://schemas.xmlsoap.org/ws/2005/04/discovery"><s:Header>
<a:MessageID>urn:uuid:{id}</a:MessageID><a:RelatesTo>{question}</a:RelatesTo></s:Header>
<s:Body><d:ProbeMatches><d:ProbeMatch><a:EndpointReference><a:Address>urn:{id}</a:Address>
</a:EndpointReference><d:XAddrs>http://{host}:{port}/x</d:XAddrs></d:ProbeMatch></d:ProbeMatches>
</s:Body></s:Envelope>"""


def main():
    own, other = sys.argv[1:]
    ears = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    ears.bind(("", PORT))
    ears.setsockopt(socket.IPPROTO_IP, socket.IP_ADD_MEMBERSHIP,
                    struct.pack("4s4s", socket.inet_aton(GROUP), socket.inet_aton(own)))
    silent = socket.create_server((own, SILENT_PORT), backlog=4096)  # takes all, answers none
    while silent:
        probe, asker = ears.recvfrom(65536)
        found = re.search(rb"MessageID>([^<]*)<", probe)
        if found is None:
            continue
        question = found[1].decode()

        def answer(number, question, host, port):
            text = MATCH.format(id=number, question=question, host=host, port=port)
            ears.sendto(text.encode(), asker)
        ears.sendto(b"\0" * 60000, asker)
        ears.sendto(b"<!DOCTYPE x [<!ENTITY x 'x'>]>" + b"<x>" * 20000, asker)
        answer("other", question, other, 5357)
        answer("unasked", "urn:uuid:unasked", own, 5401)
        for number in range(300):
            answer(number, question, own, SILENT_PORT)


if __name__ == "__main__":
    main()
