#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Tests of the tally of the fleet test: it must find each kind of error."""

import json
import os
import tempfile
import unittest

from nats import Message
from tally import Tally


def message(installation, number, event_id, header=None):
    headers = f"NATS/1.0\r\nNats-Msg-Id: {header or event_id}\r\n\r\n".encode()
    body = {"fleet_installation": installation, "fleet_number": number,
            "context": {"event_id": event_id}}
    return Message("events.1.page", "$JS.ACK.EVENTS.c.1.7.1.0.0", headers,
                   json.dumps(body).encode())


def ledger(*records):
    return b"".join(kind + b"%020d\n" % number for kind, number in records)


class TallyTest(unittest.TestCase):
    def setUp(self):
        self.tally = Tally()

    def read_ledger(self, data, installation=3):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "ledger")
            with open(path, "wb") as file:
                file.write(data)
            self.tally.read_ledger(installation, path)

    def test_finds_nothing_if_each_event_is_stored_once(self):
        self.read_ledger(ledger((b"E", 1000000), (b"E", 1000001)))
        self.tally.read_message(message(3, 1000001, "B"))
        self.tally.read_message(message(3, 1000000, "A"))
        self.assertEqual(self.tally.executed, {(3, 1000000), (3, 1000001)})
        self.assertEqual(self.tally.lost(), [])
        self.assertEqual(self.tally.twice(), [])
        self.assertEqual(self.tally.unrecorded(), [])
        self.assertEqual(self.tally.wrong, [])
        self.assertEqual(self.tally.not_delivered, [])

    def test_finds_a_lost_event(self):
        self.read_ledger(ledger((b"E", 1), (b"E", 2)))
        self.tally.read_message(message(3, 1, "A"))
        self.tally.read_message(message(4, 2, "B"))
        self.assertEqual(self.tally.lost(), [(3, 2)])
        self.assertEqual(self.tally.unrecorded(), [(4, 2)])

    def test_finds_a_repeated_event(self):
        self.tally.read_message(message(3, 1, "A"))
        self.tally.read_message(message(3, 1, "A"))
        self.assertEqual(self.tally.twice(), ["(3, 1)", "A"])

    def test_finds_an_event_that_is_stored_with_two_ids(self):
        self.tally.read_message(message(3, 1, "A"))
        self.tally.read_message(message(3, 1, "B"))
        self.assertEqual(self.tally.twice(), ["(3, 1)"])

    def test_finds_an_id_of_two_events(self):
        self.tally.read_message(message(3, 1, "A"))
        self.tally.read_message(message(3, 2, "A"))
        self.assertEqual(self.tally.twice(), ["A"])

    def test_finds_a_header_with_another_id(self):
        self.tally.read_message(message(3, 1, "A", header="B"))
        self.assertEqual(self.tally.wrong, ["sequence 7: its header has another event ID"])

    def test_finds_rubbish_in_the_stream(self):
        self.tally.read_message(Message("events.1.x", "$JS.ACK.EVENTS.c.1.9.1.0.0", b"", b"{"))
        self.assertEqual(len(self.tally.wrong), 1)
        self.assertTrue(self.tally.wrong[0].startswith("sequence 9: "), self.tally.wrong)
        self.assertEqual(self.tally.stored, {})

    def test_finds_dropped_and_rejected_events(self):
        self.read_ledger(ledger((b"E", 1), (b"D", 400)))
        self.assertEqual(self.tally.not_delivered, [(3, "D", 400)])

    def test_rejects_an_incomplete_record(self):
        with self.assertRaises(ValueError):
            self.read_ledger(ledger((b"E", 1))[:-1])


if __name__ == "__main__":
    unittest.main()
