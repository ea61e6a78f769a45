# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The rows of the table that scripts/bench prints, and their formatting."""

import collections
import dataclasses
import statistics
from typing import Optional

HEAD = ("measurement", "result", "baseline", "relative", "limit", "")


@dataclasses.dataclass
class Row:
    """One result, compared with the baseline that was measured with it.

    `floor` is the baseline. `against` is the ratio or the difference to the baseline, or the result
    itself if there is no baseline. `at_most` or `at_least` is its limit; without one, the row is
    for information only. The names of the fields are the keys of the file that --json writes.
    """
    what: str
    value: float
    unit: str
    floor: Optional[float] = None
    relation: str = ""  # "x": ratio, "+": difference, "%": part of a whole, "": the result
    against: Optional[float] = None
    at_most: Optional[float] = None
    note: str = ""
    at_least: Optional[float] = None

    def verdict(self):
        if self.at_most is not None and self.against > self.at_most:
            return "over"
        if self.at_least is not None and self.against < self.at_least:
            return "under"
        return "" if self.at_most is None and self.at_least is None else "ok"


def ratio(what, pairs, unit, at_most=None, note=""):
    """Returns a row from (result, baseline) of each round: medians, and the median ratio."""
    return Row(what, statistics.median(a for a, _ in pairs), unit,
               statistics.median(b for _, b in pairs), "x",
               statistics.median(a / b for a, b in pairs), at_most, note)


def difference(what, pairs, unit, at_most=None, note=""):
    """Returns the same with the median difference."""
    return Row(what, statistics.median(a for a, _ in pairs), unit,
               statistics.median(b for _, b in pairs), "+",
               statistics.median(a - b for a, b in pairs), at_most, note)


def absolute(what, value, unit, at_most=None, note=""):
    return Row(what, value, unit, against=value, at_most=at_most, note=note)


def number(value):
    """Formats a number with three or four significant digits."""
    if value is None:
        return ""
    if value == int(value) or abs(value) >= 1000:
        return f"{value:,.0f}"
    return f"{value:.3g}" if abs(value) < 100 else f"{value:.1f}"


def relative(value, row):
    if value is None:
        return ""
    if row.relation == "x":
        return f"{value:.2f} x"
    if row.relation == "%":
        return f"{value:.0f} %"
    sign = "+" if row.relation == "+" and value >= 0 else ""
    return f"{sign}{number(value)} {row.unit}".rstrip()


def limit(row):
    if row.at_least is not None:
        return "at least " + relative(row.at_least, row)
    return relative(row.at_most, row)


def cells(row):
    against = relative(row.against, row) if row.relation else ""
    return (row.what + (f" ({row.note})" if row.note else ""), f"{number(row.value)} {row.unit}",
            f"{number(row.floor)} {row.unit}" if row.floor is not None else "", against,
            limit(row), row.verdict())


def render(rows):
    """Returns the table as aligned Markdown."""
    lines = [HEAD] + [cells(row) for row in rows]
    widths = [max(len(line[i]) for line in lines) for i in range(len(HEAD))]

    def written(line):
        first, *others = zip(line, widths)
        return "| " + " | ".join([first[0].ljust(first[1])] +
                                 [text.rjust(width) for text, width in others]) + " |"

    rule = "|" + "|".join("-" * (width + 2) for width in widths) + "|"
    return "\n".join([written(lines[0]), rule] + [written(line) for line in lines[1:]])


def grouped(runs):
    """Returns the rows of each measurement of several runs, by the name of the row and its number
    among the rows of the same name in its run."""
    found = {}
    for run in runs:
        count = collections.Counter()
        for row in run:
            found.setdefault((row.what, count[row.what]), []).append(row)
            count[row.what] += 1
    return found


def median(rows):
    """Returns the rows of one measurement as one row: the medians of result, baseline and relation,
    with the first note."""
    def of(field):
        values = [getattr(row, field) for row in rows]
        return None if values[0] is None else statistics.median(values)

    return dataclasses.replace(rows[0], value=of("value"), floor=of("floor"), against=of("against"))


def medians(runs):
    return [median(rows) for rows in grouped(runs).values()]


def as_json(rows):
    return [dict(dataclasses.asdict(row), verdict=row.verdict()) for row in rows]
