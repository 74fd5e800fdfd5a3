#!/usr/bin/env python3
"""A driver that does nothing but answer, as zelm-packets(5) tells. As /usr/bin/zelm_out_WORD it runs items."""
import os, re, signal, socket, socketserver, struct, sys

HEADER = struct.Struct("<4sIQB80sHI")  # magic, length, sequence, flags, command, count and offset of entries
file = sys.argv[sys.argv.index("--file") + 1]
lines = open(file, errors="surrogateescape").read().split("\n")
settings = dict(line.split("=", 1) for line in lines if "=" in line and line[0] != "#")
directory, name = os.path.split(file)
name = re.sub(r"[\0- \x7f%]", lambda byte: "%%%02X" % ord(byte[0]), name)
entry = f"{directory}/.{name}.metadir/.media.item.active.socket"

def text_at(packet, offset):
    return packet[offset:packet.index(b"\0", offset)].decode(errors="surrogateescape")

def packed(sequence, command, report):
    texts = table = b""
    for pair in report:
        offsets = []
        for text in pair:
            offsets.append(HEADER.size + len(texts))
            texts += text.encode(errors="surrogateescape") + b"\0"
        table += struct.pack("<IIQ", *offsets, 0)
    end = HEADER.size + len(texts)
    return HEADER.pack(b"TVP4", end + len(table), sequence, 0, command, len(report), end) + texts + table

class Client(socketserver.BaseRequestHandler):
    def handle(self):
        while request := self.request.recv(1 << 20):
            _, _, sequence, _, command, _, table = HEADER.unpack_from(request)
            if command.startswith(b"set\0"):
                key, value = struct.unpack_from("<4xI8x4xI8x", request, table)  # where their texts are
                settings[text_at(request, key)] = text_at(request, value)
            report = [("*active", "1")] if command.startswith(b"report\0") else []
            report += [("*" + key, value) for key, value in settings.items() if report]
            self.request.send(packed(sequence, command, report))

class Server(socketserver.ThreadingUnixStreamServer):
    socket_type, daemon_threads = socket.SOCK_SEQPACKET, True

os.makedirs(os.path.dirname(entry), exist_ok=True)
if socket.socket(socket.AF_UNIX, socket.SOCK_SEQPACKET).connect_ex(entry) == 0:
    sys.exit("another driver serves " + file)
if os.path.lexists(entry):
    os.unlink(entry)
signal.signal(signal.SIGTERM, lambda *_: sys.exit())
try:
    Server(entry, Client).serve_forever()
finally:
    os.unlink(entry)
