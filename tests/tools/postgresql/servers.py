# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""A private PostgreSQL cluster and a private NATS server, for tests."""
import glob
import json
import os
import pathlib
import socket
import subprocess
import time

PATIENCE = 100  # seconds, on a busy machine
NOBODY = 65534


class Cluster:
    """A PostgreSQL cluster in a folder, on a Unix socket only."""

    def __init__(self, folder):
        found = sorted(glob.glob("/usr/lib/postgresql/*/bin"))
        if not found:
            raise SystemExit("PostgreSQL is missing; scripts/packages tests installs it")
        self.bin = pathlib.Path(found[-1])
        self.folder = pathlib.Path(folder)
        self.folder.mkdir()
        # PostgreSQL refuses to run as root.
        self.user = []
        if os.geteuid() == 0:
            self.user = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
            os.chown(self.folder, NOBODY, NOBODY)
            self.folder.parent.chmod(0o755)
        data = str(self.folder / "data")
        self.run_tool("initdb", "--pgdata", data, "--auth", "trust", "--encoding", "UTF8",
                      "--locale", "C.UTF-8", "--username", "jx", "--no-sync")
        self.server = subprocess.Popen(
            [*self.user, str(self.bin / "postgres"), "-D", data, "-k", str(self.folder), "-c",
             "listen_addresses=", "-c", "fsync=off"],
            cwd=self.folder, stderr=subprocess.DEVNULL)
        wait_until(lambda: subprocess.run(
            [str(self.bin / "pg_isready"), "-q", "-h", str(self.folder)]).returncode == 0)

    def run_tool(self, name, *arguments):
        subprocess.run([*self.user, str(self.bin / name), *arguments], cwd=self.folder, check=True,
                       stdout=subprocess.DEVNULL, timeout=PATIENCE)

    def psql(self, *arguments, stdin=subprocess.DEVNULL):
        return subprocess.run(
            [str(self.bin / "psql"), "--no-psqlrc", "--host", str(self.folder), "--username", "jx",
             *arguments, "postgres"],
            stdin=stdin, capture_output=True, text=True, encoding="utf-8", timeout=PATIENCE)

    def query(self, sql):
        """Returns the rows as lists of strings; NULL is None."""
        result = self.psql("--tuples-only", "--no-align", "--command",
                           f"SELECT coalesce(json_agg(row), '[]') FROM ({sql}) AS row")
        assert result.returncode == 0, result.stderr
        return [list(row.values()) for row in json.loads(result.stdout, parse_float=str)]

    def stop(self):
        stop(self.server)


class Nats:
    """A NATS server with JetStream, and a connection that publishes to it."""

    def __init__(self, folder):
        folder = pathlib.Path(folder)
        folder.mkdir()
        self.server = subprocess.Popen(
            ["/usr/sbin/nats-server", "--addr", "127.0.0.1", "--port", "-1", "--jetstream",
             "--store_dir", str(folder / "store"), "--ports_file_dir", str(folder)],
            stderr=subprocess.DEVNULL)
        wait_until(lambda: any(folder.glob("*.ports")))
        ports = next(folder.glob("*.ports"))
        wait_until(lambda: ports.read_text().endswith("}"))
        self.url = json.loads(ports.read_text())["nats"][0]
        port = int(self.url.rsplit(":", 1)[1])
        self.socket = socket.create_connection(("127.0.0.1", port), timeout=PATIENCE)
        self.input = self.socket.makefile("rb")
        self.input.readline()
        self.socket.sendall(b'CONNECT {"verbose":false,"headers":true}\r\nSUB reply 1\r\n')

    def request(self, subject, body, header=""):
        """Publishes a message and returns the reply of JetStream."""
        head = f"NATS/1.0\r\n{header}\r\n\r\n".encode() if header else b""
        sizes = f"{len(head)} {len(head) + len(body)}" if head else f"{len(body)}"
        verb = "HPUB" if head else "PUB"
        self.socket.sendall(f"{verb} {subject} reply {sizes}\r\n".encode() + head + body + b"\r\n")
        while True:
            line = self.input.readline().split()
            if line[0] == b"PING":
                self.socket.sendall(b"PONG\r\n")
            elif line[0] == b"MSG":
                reply = json.loads(self.input.read(int(line[-1]) + 2))
                assert "error" not in reply, reply
                return reply
            else:
                raise AssertionError(line)

    def add_stream(self, name, subject):
        config = {"name": name, "subjects": [subject], "storage": "file", "num_replicas": 1,
                  "retention": "limits", "discard": "new"}
        self.request(f"$JS.API.STREAM.CREATE.{name}", json.dumps(config).encode())

    def stop(self):
        self.input.close()
        self.socket.close()
        stop(self.server)


def wait_until(condition):
    deadline = time.monotonic() + PATIENCE
    while not condition():
        assert time.monotonic() < deadline, "a server did not start"
        time.sleep(0.01)


def stop(process):
    process.terminate()
    process.wait(timeout=PATIENCE)
