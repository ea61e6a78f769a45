# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import json
import os
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "bench"))
import partsbar  # noqa: E402
import summary  # noqa: E402
import table  # noqa: E402


class Limits(unittest.TestCase):
    def row(self, against, **limits):
        return table.Row("a", 3, "us", 2, "x", against, **limits)

    def test_compares_with_an_upper_limit(self):
        self.assertEqual(self.row(1.2, at_most=1.2).verdict(), "ok")
        self.assertEqual(self.row(1.3, at_most=1.2).verdict(), "over")

    def test_compares_with_a_lower_limit(self):
        self.assertEqual(self.row(1.5, at_least=1.5).verdict(), "ok")
        self.assertEqual(self.row(1.4, at_least=1.5).verdict(), "under")

    def test_has_no_result_without_a_limit(self):
        self.assertEqual(self.row(1.4).verdict(), "")

    def test_prints_a_lower_limit(self):
        self.assertIn("at least 1.50 x", table.render([self.row(1.4, at_least=1.5)]))


class Medians(unittest.TestCase):
    def test_are_those_of_result_baseline_and_relation(self):
        runs = [[table.Row("a", 1, "us", 10, "x", 0.1, note="first")],
                [table.Row("a", 9, "us", 20, "x", 0.9, note="second")],
                [table.Row("a", 4, "us", 90, "x", 0.2, note="third")]]
        self.assertEqual(table.medians(runs), [table.Row("a", 4, "us", 20, "x", 0.2, note="first")])

    def test_keep_rows_that_a_run_is_missing(self):
        runs = [[table.Row("a", 1, "us")], [table.Row("a", 3, "us"), table.Row("b", 5, "us")]]
        self.assertEqual(table.medians(runs), [table.Row("a", 2, "us"), table.Row("b", 5, "us")])

    def test_separate_rows_of_the_same_name(self):
        runs = [[table.Row("a", 1, "us"), table.Row("a", 10, "us")],
                [table.Row("a", 3, "us"), table.Row("a", 30, "us")]]
        self.assertEqual(table.medians(runs), [table.Row("a", 2, "us"), table.Row("a", 20, "us")])


class Tables(unittest.TestCase):
    def test_contain_median_and_range_of_rows_with_a_limit(self):
        before = [[table.Row("call", 5, "us", 2, "x", 2.5)]]
        now = [[table.Row("call", 3, "us", 2, "x", against, at_most=1.2),
                table.Row("other", 1, "us")] for against in (1.5, 1.1, 1.2)]
        self.assertEqual(summary.limits(before, now), "\n".join([
            "| measurement | limit | before | now |  |",
            "|---|---|---|---|---|",
            "| call | 1.20 x | 2.50 x | 1.20 x (1.10 x to 1.50 x) | ok |"]))

    def test_compare_the_kinds_of_queues(self):
        runs = [[table.Row("peers, call, p50, ours", 20, "us"),
                 table.Row("peers, call, p50, memory", 10, "us", 20, "x", 0.5),
                 table.Row("peers, memory at ready, ours", 12, "MiB", 8, "+", 3.5),
                 table.Row("other", 1, "us")]]
        self.assertEqual(summary.queues(runs), "\n".join([
            "| measurement | ours | memory |",
            "|---|---|---|",
            "| call, p50, us | 20 | 10 |",
            "| memory at ready, MiB | 3.5 |  |"]))

    def test_omit_the_kinds_of_queues_that_were_not_measured(self):
        self.assertEqual(summary.queues([[table.Row("other", 1, "us")]]), "")

    def test_read_files_of_earlier_revisions(self):
        earlier = {"what": "a", "value": 1, "unit": "us", "floor": None, "relation": "",
                   "against": None, "at_most": None, "note": "", "verdict": ""}
        with tempfile.NamedTemporaryFile("w", suffix=".json") as file:
            json.dump({"rows": [earlier]}, file)
            file.flush()
            self.assertEqual(summary.read(file.name), [table.Row("a", 1, "us")])


class Parts(unittest.TestCase):
    ROWS = {"execute/next millisecond": 16, "variables/next millisecond": 5, "body": 3,
            "body/event": 1, "notification without observers": 0.5, "enqueue": 7,
            "baseline/rapidjson": 3, "baseline/rapidjson and write": 6}

    def parts(self, **changed):
        us = {**self.ROWS, **changed}
        return partsbar.parts([table.Row("parts, " + name, value, "us")
                               for name, value in us.items()])

    def test_add_up_to_the_execute(self):
        own, baseline = self.parts()
        self.assertEqual(own, {"variables": 5, "event": 1, "blocks": 2, "notification": 0.5,
                               "queue": 7, "other": 0.5})
        self.assertEqual(baseline, {"event": 3, "queue": 3})

    def test_have_no_remainder_if_they_exceed_the_execute(self):
        own, _ = self.parts(enqueue=9)
        self.assertNotIn("other", own)


if __name__ == "__main__":
    unittest.main()
