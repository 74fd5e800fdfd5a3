#!/usr/bin/env python3
"""A driver after zelm-packets(5), in Python's standard library alone: it shows a title that can be changed meanwhile.

Put it in the place of a driver, such as /usr/bin/zelm_out_newtek_ndi, and "zelm_outctl -c start" starts it. Names
that are too long for a metadir are left out here.
"""
import contextlib, errno, fcntl, os, re, secrets, signal, socket, struct, sys, threading, time

HEADER = struct.Struct("<4sIQB80sHI")  # magic, length, sequence, flags, command, count and offset of the entries
CLIENT_LIMIT = 256
ADDRESS_SIZE = 108  # of a socket, with its NUL
heard = {}  # of each client: when
status = {b"active": b"1", b"title": b"untitled"}

def reply(sequence, command, lines):
    texts = table = b""
    for key, value in lines.items():
        name = HEADER.size + len(texts)
        texts += b"*%s\0%s\0" % (key, value)
        table += struct.pack("<IIQ", name, name + len(key) + 2, 0)
    end = HEADER.size + len(texts)
    return HEADER.pack(b"TVP4", end + len(table), sequence, 0, command, len(lines), end) + texts + table

def talk(client):  # in a thread of its own, so that whatever is wrong with a request ends this connection alone
    try:
        while packet := client.recv(1 << 20):
            heard[client] = time.monotonic()
            _, _, sequence, flags, command, count, table = HEADER.unpack_from(packet)
            if flags & 1:
                values = [struct.unpack_from("<4xI", packet, table + 16 * entry)[0] for entry in range(count)]
                command, values = command.rstrip(b"\0"), [packet[at:packet.index(b"\0", at)] for at in values]
                if command == b"set" and values[0] == b"title":
                    status[b"title"] = values[1] or b"untitled"  # an empty value removes the setting
                client.send(reply(sequence, command, status if command == b"report" else {}))
    finally:
        heard.pop(client, None)
        client.close()

def hang_up_longest_silent():
    for client, _ in sorted(heard.copy().items(), key=lambda item: item[1])[:1]:
        heard.pop(client, None)
        with contextlib.suppress(OSError):  # it has gone by itself
            client.shutdown(socket.SHUT_RDWR)

def accept(listener):
    while True:
        try:
            client = listener.accept()[0]
            heard[client] = time.monotonic()
            threading.Thread(target=talk, args=[client], daemon=True).start()
            if len(heard) > CLIENT_LIMIT:
                hang_up_longest_silent()
        except (OSError, RuntimeError):  # no descriptor or thread is left
            hang_up_longest_silent()
            time.sleep(0.1)

def listen(metadir, entry):  # drivers that come up at once do it one after the other
    os.makedirs(metadir, exist_ok=True)
    lock = os.open(metadir, os.O_DIRECTORY | os.O_NOFOLLOW)
    limit = time.monotonic() + 2
    while time.monotonic() < limit:
        with contextlib.suppress(BlockingIOError):
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
            break
        time.sleep(0.01)
    left = os.readlink(entry) if os.path.islink(entry) else entry
    with socket.socket(socket.AF_UNIX, socket.SOCK_SEQPACKET | socket.SOCK_NONBLOCK) as client:
        if len(left) < ADDRESS_SIZE and client.connect_ex(left) not in (errno.ECONNREFUSED, errno.ENOENT):
            sys.exit("another driver serves the item")
    for path in [entry] + re.findall(rb"^/tmp/item-[0-9a-f]{16}$", left):
        with contextlib.suppress(FileNotFoundError):
            os.unlink(path)
    # What no address holds is bound where nobody can foresee it.
    bound = entry if len(entry) < ADDRESS_SIZE else b"/tmp/item-" + secrets.token_hex(8).encode()
    listener = socket.socket(socket.AF_UNIX, socket.SOCK_SEQPACKET)
    listener.bind(bound)
    if bound != entry:
        os.symlink(bound, entry)
    listener.listen(128)
    os.close(lock)
    return listener, bound

def main(_, file):  # --file SETTINGS
    endings = {signal.SIGTERM, signal.SIGINT}
    signal.pthread_sigmask(signal.SIG_BLOCK, endings)
    with open(file, "rb") as settings:
        status.update(re.findall(rb"^(title)=(.*)", settings.read(), re.M))
    directory, name = os.path.split(os.fsencode(file))
    name = re.sub(rb"[\0- %\x7f]", lambda byte: b"%%%02X" % ord(byte[0]), name)
    metadir = os.path.join(directory, b".%s.metadir" % name)
    entry = metadir + b"/.media.item.active.socket"
    listener, bound = listen(metadir, entry)
    threading.Thread(target=accept, args=[listener], daemon=True).start()
    signal.sigwait(endings)
    for path in {entry, bound}:
        os.unlink(path)

main(*sys.argv[1:])
