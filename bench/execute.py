# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""What an execute costs its caller: rows of jx_bench_execute."""

import statistics

import table

P50, P99, LONGEST = range(3)


def pairs(case, figure, place, floor="floor", floor_place=None):
    """(figure, floor) of each round."""
    return [(each[figure][place], each[floor][place if floor_place is None else floor_place])
            for each in case["rounds"]]


def longest(case, figure):
    return max(each[figure][LONGEST] for each in case["rounds"])


def described(case):
    writes = "+".join(str(size) for size in case["writes"])
    return f"body {case['body_bytes']} B, writes {writes} B"


def rows_of_case(what, case, bounds):
    """`bounds`: of the median's ratio to the floor, and of the 99th percentile to the median."""
    to_floor, to_median = bounds
    return [
        table.ratio(f"{what}, p50", pairs(case, "execute", P50), "us", to_floor, described(case)),
        table.ratio(f"{what}, building included, p50", pairs(case, "with_building", P50), "us",
                    to_floor),
        table.ratio(f"{what}, p99, the floor is its own p50",
                    pairs(case, "execute", P99, "execute", P50), "us", to_median),
        table.ratio(f"{what}, p99 beside the floor's p99", pairs(case, "execute", P99), "us"),
        table.Row(f"{what}, longest call", longest(case, "execute"), "us", longest(case, "floor"),
                  "x", longest(case, "execute") / longest(case, "floor")),
    ]


def growth(cases):
    """How much longer 100 items take than one, beside the same of RapidJSON."""
    one, hundred = cases["purchase_1"]["rounds"], cases["purchase_100"]["rounds"]
    factors, marginal = [], []
    for small, large in zip(one, hundred):
        own = large["execute"][P50], small["execute"][P50]
        floor = large["floor_json"][P50], small["floor_json"][P50]
        factors.append((own[0] / own[1], floor[0] / floor[1]))
        marginal.append(((own[0] - own[1]) / 99, (floor[0] - floor[1]) / 99))
    return [table.ratio("growth from 1 to 100 items, beside RapidJSON's", factors, "times", 1.3),
            table.ratio("each item beyond the first, beside RapidJSON's", marginal, "us")]


NAMES = {"custom": "custom event", "purchase_1": "purchase, 1 item",
         "purchase_3": "purchase, 3 items", "purchase_20": "purchase, 20 items",
         "purchase_100": "purchase, 100 items"}


def burst_rows(cases):
    rows = []
    for name, case in cases.items():
        what = f"execute, burst, {NAMES[name]}"
        if name == "purchase_1":
            rows += rows_of_case(what, case, (1.8, 3))
        else:
            rows.append(table.ratio(f"{what}, p50", pairs(case, "execute", P50), "us",
                                    note=described(case)))
        rows.append(table.absolute(
            f"allocations, {NAMES[name]}", case["allocations"], "",
            40 if name == "purchase_1" else None, note=f"malloc calls {case['mallocs']:.1f}"))
    if "purchase_1" in cases and "purchase_100" in cases:
        rows += growth(cases)
    return rows


def paced_rows(cases, what):
    rows = []
    for name, case in cases.items():
        rows += rows_of_case(f"execute, {what}, {NAMES[name]}", case, (None, None))
    return rows
