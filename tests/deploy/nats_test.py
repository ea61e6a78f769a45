#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Runs a cluster with deploy/nats.conf, and checks the rights of its users.

nats_test.py JX     the path of the program jx
"""

import json
import os
import shutil
import socket
import ssl
import subprocess
import sys
import time
import unittest

import programs

JX = sys.argv.pop(1)
EVENT = json.dumps({"event_name": "play", "context": {"event_id": "e-1"}}).encode()
EVERY_USER_REFUSED = (
    "$JS.API.STREAM.DELETE.EVENTS", "$JS.API.STREAM.PURGE.EVENTS",
    "$JS.API.STREAM.MSG.DELETE.EVENTS", "$JS.API.STREAM.MSG.GET.EVENTS",
    "$JS.API.STREAM.SNAPSHOT.EVENTS", "$JS.API.STREAM.CREATE.OTHER",
    "$JS.API.CONSUMER.CREATE.EVENTS", "$SYS.REQ.SERVER.PING", "other.subject")
REFUSED = {
    "gateway": ("$JS.API.STREAM.CREATE.EVENTS", "$JS.API.STREAM.UPDATE.EVENTS",
                "$JS.API.CONSUMER.MSG.NEXT.EVENTS.drain", "$JS.API.CONSUMER.DELETE.EVENTS.drain",
                "$JS.ACK.EVENTS.drain.1.1.1.1.0"),
    "drain": ("$JS.API.STREAM.CREATE.EVENTS", "$JS.API.STREAM.UPDATE.EVENTS", "events.1.play",
              "invalid.1.play"),
    "setup": ("$JS.API.CONSUMER.MSG.NEXT.EVENTS.drain", "$JS.API.CONSUMER.DELETE.EVENTS.drain",
              "events.1.play", "invalid.1.play"),
}


class Client:
    """A connection of the NATS protocol."""

    def __init__(self, port, authority, user, password):
        plain = socket.create_connection(("127.0.0.1", port), programs.TIMEOUT_S)
        while not plain.recv(1, socket.MSG_PEEK) == b"\r":  # the line INFO, before TLS
            plain.recv(1)
        plain.recv(2)
        self.socket = ssl.create_default_context(cafile=authority).wrap_socket(
            plain, server_hostname="127.0.0.1")
        self.file = self.socket.makefile("rwb")
        options = {"user": user, "pass": password, "verbose": True, "pedantic": False}
        self.accepted = self.send(f"CONNECT {json.dumps(options)}\r\n")

    def send(self, line):
        """Returns the errors of the server after `line`."""
        self.file.write(line.encode() + b"PING\r\n")
        self.file.flush()
        errors = []
        for reply in self.file:
            if reply.startswith(b"-ERR"):
                errors.append(reply.decode().strip())
            elif reply == b"PONG\r\n":
                break
        return errors

    def close(self):
        self.file.close()
        self.socket.close()


class NatsConfiguration(unittest.TestCase):
    def setUp(self):
        self.deployment = programs.Deployment(self)

    def check(self, path, environment):
        return subprocess.run([programs.program("nats-server"), "-c", path, "-t"],
                              env={**os.environ, **environment}, capture_output=True, check=False)

    def test_is_valid_only_with_all_passwords(self):
        path, environment = self.deployment.broker_configuration("nats-1")
        self.assertEqual(0, self.check(path, environment).returncode)
        for name in environment:
            rest = {other: value for other, value in environment.items() if other != name}
            self.assertNotEqual(0, self.check(path, rest).returncode, name)

    def client(self, user, password):
        client = Client(self.deployment.ports["nats-1", "client"], self.deployment.authority, user,
                        password)
        self.addCleanup(client.close)
        return client

    def test_gives_each_user_the_rights_that_it_needs_and_no_others(self):
        self.deployment.start_brokers()
        setup = self.deployment.set_up(JX)
        self.assertEqual((0, ""), (setup.returncode, setup.stderr))
        # A second run changes the streams. The environment instead of options:
        again = subprocess.run(
            [JX, "gateway", "setup", "--nats-ca", self.deployment.authority,
             "--max-bytes", "45000000"],
            env={**os.environ, "JX_NATS": ",".join(self.deployment.urls("setup"))},
            capture_output=True, text=True, check=False)
        self.assertEqual((0, ""), (again.returncode, again.stderr))
        gateway = self.deployment.start_gateway(JX)
        gateway.wait_until_ready()
        # A body of the largest size that the gateway accepts.
        for body in (EVENT, EVENT.replace(b"e-1", b"e-2").ljust(1024 * 1024)):
            self.assertEqual([204], [response["status"] for response in
                                     programs.post(gateway.url + "?jx_s=1", body)])
        self.assertEqual(["e-1", "e-2"], self.drained())
        for user, refused in REFUSED.items():
            client = self.client(user, programs.PASSWORDS[user])
            self.assertEqual([], client.accepted)
            self.assertEqual([], client.send("SUB _INBOX.x.* 1\r\n"))
            for subject in refused + EVERY_USER_REFUSED:
                self.assertEqual([f"-ERR 'Permissions Violation for Publish to \"{subject}\"'"],
                                 client.send(f"PUB {subject} 2\r\n{{}}\r\n"), user)
            for subject in ("events.>", "invalid.>", "$JS.API.>", ">"):
                self.assertEqual(
                    [f"-ERR 'Permissions Violation for Subscription to \"{subject}\"'"],
                    client.send(f"SUB {subject} 2\r\n"), user)

    def drained(self):
        """Returns the event IDs in the files of a drain that runs twice, in their order."""
        folder = self.deployment.folder / "drain"
        for _ in range(2):
            drain = subprocess.run([JX, "gateway", "drain", *self.deployment.nats_options("drain"),
                                    "--out", folder, "--once"],
                                   capture_output=True, text=True, check=False)
            self.assertEqual(0, drain.returncode, drain.stderr)
        lines = "".join(path.read_text(encoding="utf-8") for path in sorted(folder.glob("*.ndjson")))
        return [json.loads(line)["event_id"] for line in lines.splitlines()]

    def test_copies_the_streams_to_a_broker_without_files(self):
        brokers = self.deployment.start_brokers()
        self.assertEqual(0, self.deployment.set_up(JX).returncode)
        gateway = self.deployment.start_gateway(JX)
        gateway.wait_until_ready()
        for number in range(5):
            body = EVENT.replace(b"e-1", b"e-%d" % number)
            self.assertEqual(204, programs.post(gateway.url, body)[0]["status"])
        brokers["nats-3"].kill()
        shutil.rmtree(self.deployment.folder / "nats-3")
        # As a television does: the others elect a leader first, if it was that of the stream.
        last = EVENT.replace(b"e-1", b"e-5")
        self.wait_until(lambda: programs.post(gateway.url, last)[0]["status"] == 204)
        self.deployment.start_broker("nats-3")
        self.wait_until(lambda: self.deployment.stored_by("nats-3") == 6)

    def wait_until(self, condition):
        deadline = time.monotonic() + programs.TIMEOUT_S
        while not condition():
            self.assertLess(time.monotonic(), deadline)

    def test_refuses_wrong_passwords_and_nodes_without_a_certificate(self):
        self.deployment.start_brokers()
        for user, password in (("gateway", "wrong"), ("other", "gateway-password"), ("", "")):
            self.assertEqual(["-ERR 'Authorization Violation'"],
                             self.client(user, password).accepted)
        address = "127.0.0.1", self.deployment.ports["nats-1", "route"]
        context = ssl.create_default_context(cafile=self.deployment.authority)
        with socket.create_connection(address, programs.TIMEOUT_S) as plain:
            with self.assertRaisesRegex(ssl.SSLError, "CERTIFICATE_REQUIRED|BAD_CERTIFICATE"):
                with context.wrap_socket(plain, server_hostname="127.0.0.1") as node:
                    # With TLS 1.3, the server reports the error after the handshake.
                    while node.recv(4096):
                        pass


if __name__ == "__main__":
    unittest.main()
