"""update_on_port_80.py QUBLET: `qublet update` as it is installed, against servers on the port of the web.

That port is had in a network of this test's own. Where the system lets nobody make one, the test is skipped (77).
"""

import os
import pathlib
import shutil
import socket
import subprocess
import sys
import threading
import time

FAILURE = "qublet: Could not download the update information. Try again later or check your internet connection.\n"
SITE = {"QUBLET_SITE": "http://127.0.0.1"}
SKIPPED = 77


def in_a_network_of_its_own():
    if os.environ.get("QUBLET_OWN_NETWORK"):
        return subprocess.run(["ip", "link", "set", "lo", "up"]).returncode == 0
    as_root = [] if os.geteuid() == 0 else ["-r"]
    command = ["unshare", *as_root, "-n"]
    if not all(map(shutil.which, ("unshare", "ip"))) or subprocess.run([*command, "true"], stderr=-3).returncode:
        sys.exit(SKIPPED)
    os.execvpe("unshare", [*command, sys.executable, *sys.argv], {**os.environ, "QUBLET_OWN_NETWORK": "1"})


class Server:
    """Serves one connection on port 80 with `serve(connection)`; `request` is what was asked."""

    def __init__(self, serve):
        self.listener = socket.create_server(("127.0.0.1", 80))
        self.serve, self.request = serve, b""
        self.thread = threading.Thread(target=self.run, daemon=True)
        self.thread.start()

    def run(self):
        connection = self.listener.accept()[0]
        while not self.request.endswith(b"\r\n\r\n"):
            self.request += connection.recv(1)
        self.serve(connection)
        connection.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.listener.close()


def update(qublet):
    begin = time.monotonic()
    done = subprocess.run([qublet, "update"], env={**os.environ, **SITE}, capture_output=True, text=True, timeout=60)
    return done.returncode, done.stdout, done.stderr, time.monotonic() - begin


def expect(what, got, wanted):
    if got != wanted:
        sys.exit(f"{what}: {got!r} instead of {wanted!r}")


def main(qublet):
    in_a_network_of_its_own()
    expect("nobody listens", update(qublet)[:3], (1, "", FAILURE))

    with Server(lambda c: c.sendall(b"HTTP/1.1 200 OK\r\n\r\n999900000000")) as server:
        code, out, err, _ = update(qublet)
        expect("a newer version", (code, out.splitlines()[0], err),
               (0, "An updated version of this software is available.", ""))
        expect("the request", server.request,
               b"GET http://127.0.0.1/downloads/qubcurversion.txt HTTP/1.1\r\nRange: bytes=0-\r\nHost: 127.0.0.1\r\n"
               b"Accept: */*\r\nUser-Agent: WinsockVB HTTP Test example\r\nConnection: close\r\n\r\n")

    with Server(lambda c: c.sendall(b"HTTP/1.1 206 Partial Content\r\n\r\n000000000000")):
        expect("no newer version", update(qublet)[:3],
               (0, "You currently have the most up to date version installed.\n", ""))

    forever = threading.Event()
    with Server(lambda c: (c.sendall(b"999900000000"), forever.wait(60))):
        code, out, err, seconds = update(qublet)
        expect("a server that doesn't close", (code, out, err), (1, "", FAILURE))
        expect("its patience", 19.5 < seconds < 23, True)
        forever.set()


main(str(pathlib.Path(sys.argv[1]).resolve()))
