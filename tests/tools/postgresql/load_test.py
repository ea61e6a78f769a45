# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Loads files of `jx gateway drain` into a private PostgreSQL cluster.

usage: load_test.py JX SOURCE_FOLDER
"""
import json
import pathlib
import random
import string
import subprocess
import sys
import tempfile
import unittest

import servers

jx, source = sys.argv[1:3]
deploy = pathlib.Path(source) / "deploy" / "postgresql"

COLUMNS = "sequence, site, event_id, event_name, event::text, line IS NULL AS has_no_line"


def body(event_id, rest):
    return '{"event_name":"purchase","context":{"event_id":"%s"},%s}' % (event_id, rest)


class LoadTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.temporary.cleanup)
        cls.cluster = servers.Cluster(pathlib.Path(cls.temporary.name) / "cluster")
        cls.addClassCleanup(cls.cluster.stop)

    def setUp(self):
        self.cluster.psql("--command", "DROP TABLE IF EXISTS events, invalid_events")
        self.run_file("schema.sql")
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.nats = servers.Nats(self.folder / "nats")
        self.addCleanup(self.nats.stop)
        self.nats.add_stream("EVENTS", "events.>")
        self.nats.add_stream("INVALID_EVENTS", "invalid.>")

    def run_file(self, name, file=None):
        arguments = ("--file", str(deploy / name))
        if file is None:
            result = self.cluster.psql(*arguments)
        else:
            with open(file, "rb") as lines:
                result = self.cluster.psql(*arguments, stdin=lines)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stderr, "")
        return result.stdout

    def drain(self, stream="EVENTS"):
        """Returns the finished files of a stream."""
        out = self.folder / stream
        subprocess.run([jx, "gateway", "drain", "--nats", self.nats.url, "--out", str(out),
                        "--stream", stream, "--once"],
                       check=True, stderr=subprocess.DEVNULL, timeout=servers.PATIENCE)
        return sorted(out.glob("*.ndjson"))

    def publish(self, *bodies, subject="events.7.purchase", header=""):
        for text in bodies:
            self.nats.request(subject, text.encode(), header)

    def load(self, files):
        for file in files:
            self.run_file("load.sql", file)

    def test_loads_a_file_twice_without_a_change(self):
        self.publish(body("e1", '"a":1'), body("e2", '"a":2'), '{"a":3}', '{"a":3}')
        files = self.drain()
        self.load(files)
        expected = [[1, 7, "e1", "purchase"], [2, 7, "e2", "purchase"], [3, 7, None, None],
                    [4, 7, None, None]]
        rows = "SELECT sequence, site, event_id, event_name FROM events ORDER BY sequence"
        self.assertEqual(self.cluster.query(rows), expected)
        before = self.cluster.query("SELECT *, xmin::text FROM events ORDER BY sequence")
        self.load(files)
        self.run_file("schema.sql")
        self.assertEqual(self.cluster.query("SELECT *, xmin::text FROM events ORDER BY sequence"),
                         before)

    def test_keeps_the_time_of_the_broker(self):
        self.publish(body("e1", '"a":1'))
        files = self.drain()
        self.load(files)
        written = json.loads(files[0].read_text())["stored_at"]
        self.assertEqual(
            self.cluster.query("SELECT to_char(stored_at AT TIME ZONE 'UTC', "
                               "'YYYY-MM-DD\"T\"HH24:MI:SS.MS\"Z\"') FROM events"), [[written]])

    def test_keeps_strings_and_numbers_exactly(self):
        text = r'quote \" backslash \\ \\n newline \n tab \t \/ ☂ 😀 \ud83d\ude00 \u0001 \\. \\N %'
        self.publish(body("e1", '"price":4.90,"total":12345678901234567890.12345678901234567890,'
                          '"text":"%s"' % text))
        self.publish('{"a":"\\\\.",\n"b":","}', '{"a":"x\ty"}'.replace("\t", "\\t"))
        self.load(self.drain())
        self.assertEqual(
            self.cluster.query("SELECT (event ->> 'price')::numeric::text AS price, "
                               "event ->> 'total' AS total, event ->> 'text' AS text "
                               "FROM events WHERE sequence = 1"),
            [["4.90", "12345678901234567890.12345678901234567890",
              'quote " backslash \\ \\n newline \n tab \t / ☂ 😀 😀 \x01 \\. \\N %']])
        self.assertEqual(
            self.cluster.query("SELECT event ->> 'a' AS a, event ->> 'b' AS b FROM events "
                               "WHERE sequence > 1 ORDER BY sequence"),
            [["\\.", ","], ["x\ty", None]])

    def test_sums_revenue_exactly(self):
        self.publish(*(body(f"e{i}", '"revenue":0.10') for i in range(10)))
        self.load(self.drain())
        self.assertEqual(
            self.cluster.query("SELECT sum((event ->> 'revenue')::numeric)::text FROM events "
                               "WHERE event_name = 'purchase'"), [["1.00"]])

    def test_keeps_the_line_of_what_jsonb_cannot_represent(self):
        self.publish(body("e1", r'"a":"x\u0000y"'), body("e2", '"a":1e999999'),
                     body(r"e3\u0000", '"a":1'), "no JSON", "[1]", r'{"a":"\\u0000"}')
        files = self.drain()
        self.load(files)
        self.load(files)
        self.assertEqual(
            self.cluster.query(f"SELECT {COLUMNS} FROM events ORDER BY sequence"),
            [[1, 7, "e1", "purchase", None, False], [2, 7, "e2", "purchase", None, False],
             [3, 7, None, None, None, False], [4, 7, None, None, None, False],
             [5, 7, None, None, None, False],
             [6, 7, None, None, r'{"a": "\\u0000"}', True]])
        lines = files[0].read_text(encoding="utf-8").splitlines()
        self.assertEqual(
            self.cluster.query("SELECT line FROM events WHERE sequence < 6 ORDER BY sequence"),
            [[line] for line in lines[:5]])
        self.assertIn(r'"a":"x\u0000y"', lines[0])
        self.assertTrue(lines[3].endswith('"event":null,"body_base64":"bm8gSlNPTg=="}'), lines[3])

    def test_loads_events_whose_id_cannot_be_a_key(self):
        self.publish(*[body("", '"a":1')] * 2, *[body("x" * 5000, f'"a":{i}') for i in (1, 2)])
        self.load(self.drain())
        # The drain itself drops the repeat of the long ID.
        self.assertEqual(
            self.cluster.query("SELECT sequence, event_id FROM events ORDER BY sequence"),
            [[1, None], [2, None], [3, None]])

    def test_loads_events_whose_name_does_not_fit_an_index(self):
        # Random, because PostgreSQL compresses what it indexes.
        name = "".join(random.Random(7).choices(string.ascii_letters + string.digits, k=5000))
        self.publish('{"event_name":"%s"}' % name)
        self.load(self.drain())
        self.assertEqual(
            self.cluster.query("SELECT event_name, event ->> 'event_name' AS whole FROM events"),
            [[name[:256], name]])

    def test_drops_a_repeat_in_another_file(self):
        self.publish(body("e1", '"a":1'))
        self.load(self.drain())
        # A drain with another folder does not know the first file.
        self.publish(body("e1", '"a":2'), body("e2", '"a":3'))
        (self.folder / "EVENTS").rename(self.folder / "first")
        self.load(self.drain())
        self.assertEqual(
            self.cluster.query("SELECT event_id, event ->> 'a' FROM events ORDER BY event_id"),
            [["e1", "1"], ["e2", "3"]])

    def test_loads_invalid_events_with_their_diagnostics(self):
        self.publish(body("e1", '"a":1'), subject="invalid.7.purchase",
                     header='Jx-Diagnostics: [{"path":"a"}]')
        self.publish(body("e2", r'"a":"\u0000"'), subject="invalid.7.purchase",
                     header='Jx-Diagnostics: [{"path":"b"}]')
        files = self.drain("INVALID_EVENTS")
        self.load(files)
        self.load(files)
        self.assertEqual(
            self.cluster.query("SELECT event_id, diagnostics::text, event IS NULL AS is_null "
                               "FROM invalid_events ORDER BY sequence"),
            [["e1", '[{"path": "a"}]', False], ["e2", '[{"path": "b"}]', True]])
        self.assertEqual(self.cluster.query("SELECT * FROM events"), [])

    def test_changes_nothing_when_a_file_is_damaged(self):
        self.publish(body("e1", '"a":1'), body("e2", '"a":2'))
        file = self.drain()[0]
        file.write_bytes(file.read_bytes() + b"not a line\n")
        with open(file, "rb") as lines:
            result = self.cluster.psql("--file", str(deploy / "load.sql"), stdin=lines)
        self.assertEqual(result.returncode, 3)
        self.assertIn("not a line of jx gateway drain: not a line", result.stderr)
        self.assertEqual(self.cluster.query("SELECT * FROM events"), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
