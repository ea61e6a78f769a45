# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""A small NATS client: requests to JetStream, and reading a whole stream."""

import json
import socket
import time


class NatsError(Exception):
    pass


class Message:
    def __init__(self, subject, reply, headers, payload):
        self.subject = subject
        self.reply = reply
        self.headers = headers  # with the status line, such as b"NATS/1.0 404 No Messages"
        self.payload = payload

    @property
    def status(self):
        """Status of a message without payload, such as 404; 0 for others."""
        words = self.headers.partition(b"\r\n")[0].split(b" ")
        return int(words[1]) if len(words) > 1 and words[1].isdigit() else 0

    def header(self, name):
        prefix = name.encode() + b": "
        for line in self.headers.split(b"\r\n"):
            if line.startswith(prefix):
                return line[len(prefix):].decode()
        return ""

    @property
    def sequence(self):
        """Sequence in the stream, from the reply subject of a delivered message."""
        return int(self.reply.split(".")[5])


class NatsConnection:
    def __init__(self, port, timeout=10):
        self.socket = socket.create_connection(("127.0.0.1", port), timeout)
        self.buffer = bytearray()
        self.start = 0
        self._line()  # INFO
        options = {"verbose": False, "pedantic": False, "headers": True, "no_responders": True,
                   "name": "fleet", "lang": "python", "version": "1"}
        self._send(b"CONNECT " + json.dumps(options).encode())
        self._send(b"SUB fleet.reply.> 1")
        self.requests = 0
        # A timed out request of an earlier connection may still be replied to.
        self.prefix = f"fleet.reply.{id(self)}-{time.monotonic_ns()}"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.socket.close()

    def _send(self, line, payload=None):
        data = line + b"\r\n" + (b"" if payload is None else payload + b"\r\n")
        self.socket.sendall(data)

    def _fill(self):
        data = self.socket.recv(1 << 20)
        if not data:
            raise NatsError("connection closed")
        del self.buffer[:self.start]
        self.start = 0
        self.buffer += data

    def _line(self):
        while (end := self.buffer.find(b"\r\n", self.start)) < 0:
            self._fill()
        line = bytes(self.buffer[self.start:end])
        self.start = end + 2
        return line

    def _bytes(self, count):
        while len(self.buffer) - self.start < count + 2:
            self._fill()
        data = bytes(self.buffer[self.start:self.start + count])
        self.start += count + 2
        return data

    def publish(self, subject, payload=b"", reply=""):
        self._send(f"PUB {subject} {reply} {len(payload)}".encode(), payload)

    def read(self):
        """Returns the next message."""
        while True:
            words = self._line().decode().split()
            if words[0] == "PING":
                self._send(b"PONG")
            elif words[0] == "-ERR":
                raise NatsError(" ".join(words))
            elif words[0] == "MSG":
                payload = self._bytes(int(words[-1]))
                return Message(words[1], words[3] if len(words) == 5 else "", b"", payload)
            elif words[0] == "HMSG":
                data = self._bytes(int(words[-1]))
                size = int(words[-2])
                return Message(words[1], words[3] if len(words) == 6 else "", data[:size],
                               data[size:])

    def request(self, subject, value=None):
        """Returns the reply to a JetStream request. Raises NatsError for an error."""
        self.requests += 1
        reply = f"{self.prefix}.{self.requests}"
        self.publish(subject, b"" if value is None else json.dumps(value).encode(), reply)
        while (message := self.read()).subject != reply:
            pass
        if message.status == 503:
            raise NatsError(f"{subject}: no responders")
        result = json.loads(message.payload)
        if "error" in result:
            raise NatsError(f"{subject}: {result['error'].get('description', 'error')}")
        return result

    def stream(self, name):
        return self.request(f"$JS.API.STREAM.INFO.{name}")

    def messages(self, name, batch=500):
        """Yields all messages of a stream, in order."""
        state = self.stream(name)["state"]
        if state["messages"] == 0:
            return
        consumer = self.request(
            f"$JS.API.CONSUMER.CREATE.{name}",
            {"stream_name": name, "config": {"deliver_policy": "all", "ack_policy": "none",
                                             "replay_policy": "instant",
                                             "inactive_threshold": 60_000_000_000}})["name"]
        reply = f"{self.prefix}.messages"
        while True:
            request = {"batch": batch, "expires": 5_000_000_000}
            self.publish(f"$JS.API.CONSUMER.MSG.NEXT.{name}.{consumer}",
                         json.dumps(request).encode(), reply)
            for _ in range(batch):
                message = self.read()
                if message.status != 0:
                    raise NatsError(f"{name}: status {message.status} before the last message")
                yield message
                if message.sequence >= state["last_seq"]:
                    return
