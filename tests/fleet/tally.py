# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Compares the ledgers of the installations with the stream."""

import collections
import json

RECORD_SIZE = 22  # see tests/soak/Record.h: a letter, twenty digits and a newline


class Tally:
    def __init__(self):
        self.executed = set()   # pairs of installation and number
        self.not_delivered = []  # what the library reported as dropped or rejected
        self.stored = collections.Counter()
        self.ids = collections.Counter()
        self.wrong = []  # messages that are not as the gateway stores them

    def read_ledger(self, installation, path):
        with open(path, "rb") as file:
            data = file.read()
        if len(data) % RECORD_SIZE != 0:
            raise ValueError(f"{path}: a record is incomplete")
        for at in range(0, len(data), RECORD_SIZE):
            kind, number = data[at:at + 1], int(data[at + 1:at + RECORD_SIZE - 1])
            if kind == b"E":
                self.executed.add((installation, number))
            else:
                self.not_delivered.append((installation, kind.decode(), number))

    def read_message(self, message):
        try:
            body = json.loads(message.payload)
            event = body["fleet_installation"], body["fleet_number"]
            event_id = body["context"]["event_id"]
        except (ValueError, KeyError, TypeError) as error:
            self.wrong.append(f"sequence {message.sequence}: {error!r}")
            return
        self.stored[event] += 1
        self.ids[event_id] += 1
        if message.header("Nats-Msg-Id") != event_id:
            self.wrong.append(f"sequence {message.sequence}: its header has another event ID")

    def lost(self):
        return sorted(self.executed - self.stored.keys())

    def twice(self):
        """Events, and event IDs, that are in the stream more than once."""
        return sorted(str(key) for counts in (self.stored, self.ids)
                      for key, count in counts.items() if count > 1)

    def unrecorded(self):
        """Events whose installation was killed between execute and the record in the ledger."""
        return sorted(self.stored.keys() - self.executed)
