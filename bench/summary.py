#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Prints the tables of docs/performance.md from files of `scripts/bench --json`.

    summary.py [--before FILE...] --now FILE...

The first table contains the rows that have a limit: the median of the runs and their range. The
second one compares the kinds of queues, if the runs measured them.
"""

import argparse
import json
import statistics

import table


def read(path):
    """Returns the rows of a file."""
    with open(path, encoding="utf-8") as file:
        return [table.Row(**{key: value for key, value in row.items() if key != "verdict"})
                for row in json.load(file)["rows"]]


def spread(rows):
    """Returns the median of the rows of several runs, and in brackets their range."""
    if not rows:
        return ""
    values = [row.against for row in rows]
    median, low, high = (table.relative(of(values), rows[0])
                         for of in (statistics.median, min, max))
    return median if low == high else f"{median} ({low} to {high})"


def markdown(lines):
    head, *others = ["| " + " | ".join(line) + " |" for line in lines]
    return "\n".join([head, "|---" * len(lines[0]) + "|", *others])


def limits(before, now):
    """Returns the table of the rows that have a limit now."""
    lines = [("measurement", "limit", "before", "now", "")]
    earlier = table.grouped(before)
    for key, rows in table.grouped(now).items():
        row = table.median(rows)
        if row.verdict():
            lines.append((row.what, table.limit(row), spread(earlier.get(key, [])), spread(rows),
                          row.verdict()))
    return markdown(lines)


def queues(runs):
    """Returns the table of the rows "peers, MEASUREMENT, KIND" with a column per kind, or "" if
    there are none."""
    found = {}
    for row in table.medians(runs):
        part, _, rest = row.what.partition(", ")
        if part == "peers":
            measurement, _, kind = rest.rpartition(", ")
            value = row.against if row.relation == "+" else row.value
            unit = f", {row.unit}" if row.unit else ""
            found.setdefault(measurement + unit, {})[kind] = table.number(value)
    if not found:
        return ""
    kinds = list(next(iter(found.values())))
    return markdown([("measurement", *kinds)] +
                    [(measurement, *(cells.get(kind, "") for kind in kinds))
                     for measurement, cells in found.items()])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--before", nargs="+", default=[], metavar="FILE",
                        help="runs of the earlier revision")
    parser.add_argument("--now", nargs="+", required=True, metavar="FILE",
                        help="runs of this revision, with the limits")
    options = parser.parse_args()
    before = [read(path) for path in options.before]
    now = [read(path) for path in options.now]
    print(limits(before, now))
    compared = queues(now)
    if compared:
        print("\n" + compared)


if __name__ == "__main__":
    main()
