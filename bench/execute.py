# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Duration of execute() on the calling thread: rows of jx_bench_execute."""

import tempfile

import nginx
import table

P50, P99, LONGEST = range(3)


def pairs(case, result, place, baseline="baseline", baseline_place=None):
    """Returns (result, baseline) of each round."""
    if baseline_place is None:
        baseline_place = place
    return [(each[result][place], each[baseline][baseline_place]) for each in case["rounds"]]


def longest(case, result):
    return max(each[result][LONGEST] for each in case["rounds"])


def described(case):
    return (f"{case['body_bytes']} B, {case['writes']:.2f} writes of {case['written_bytes']:.0f} B")


def rows_of_case(what, case, to_baseline=None, with_building=None):
    """Returns the rows of one case. The limits apply to the ratios of the medians to the
    baseline."""
    return [
        table.ratio(f"{what}, p50", pairs(case, "execute", P50), "us", to_baseline, described(case)),
        table.ratio(f"{what}, p50 with building", pairs(case, "with_building", P50), "us",
                    with_building),
        table.ratio(f"{what}, p99", pairs(case, "execute", P99), "us"),
        table.ratio(f"{what}, p99 relative to p50", pairs(case, "execute", P99, "execute", P50),
                    "us", 3),
        table.Row(f"{what}, longest", longest(case, "execute"), "us", longest(case, "baseline"),
                  "x", longest(case, "execute") / longest(case, "baseline")),
    ]


def growth(cases):
    """Returns the ratio of 100 items to one item, compared with that of RapidJSON alone."""
    one, hundred = cases["purchase_1"]["rounds"], cases["purchase_100"]["rounds"]
    factors, marginal = [], []
    for small, large in zip(one, hundred):
        own = large["execute"][P50], small["execute"][P50]
        base = large["baseline_json"][P50], small["baseline_json"][P50]
        factors.append((own[0] / own[1], base[0] / base[1]))
        marginal.append(((own[0] - own[1]) / 99, (base[0] - base[1]) / 99))
    return [table.ratio("growth from 1 to 100 items", factors, "times", 1.3),
            table.ratio("each item beyond the first", marginal, "us")]


NAMES = {"custom": "custom", "purchase_1": "1 item", "purchase_4": "4 items",
         "purchase_20": "20 items", "purchase_100": "100 items"}


def burst_rows(cases):
    rows = rows_of_case("burst, 1 item", cases["purchase_1"])
    rows += rows_of_case("burst, 4 items", cases["purchase_4"], 1.2, 1.4)
    for name in ("custom", "purchase_20", "purchase_100"):
        rows.append(table.ratio(f"burst, {NAMES[name]}, p50", pairs(cases[name], "execute", P50),
                                "us", note=described(cases[name])))
    for name, case in cases.items():
        rows.append(table.absolute(
            f"allocations, {NAMES[name]}", case["allocations"], "",
            2 if name in ("purchase_1", "purchase_4") else None,
            note=f"malloc calls {case['mallocs']:.1f}"))
    return rows + growth(cases)


def paced_rows(cases, what, to_baseline):
    rows = []
    for name, case in cases.items():
        rows += rows_of_case(f"{what}, {NAMES[name]}", case, to_baseline)
    return rows


def write_rows(cases):
    return [table.absolute(f"writes per event on the caller's thread, {NAMES[name]}",
                           case["writes"], "", 1) for name, case in cases.items()]


def thread_rows(bench):
    """Returns the rows of jx_bench_threads: execute() from several threads at once."""
    rows = []
    quick = ["--rounds", 2, "--calls", 40] if bench.quick else ["--calls", 8000]
    found = bench.run("jx_bench_threads", *quick)
    for threads, rounds in found.items():
        what = f"{threads} thread{'s' if threads != '1' else ''}, 1 item"
        case = {"rounds": rounds}
        rows.append(table.ratio(f"{what}, events", pairs(case, "execute", 0), "/s"))
        rows.append(table.ratio(f"{what}, p50", pairs(case, "execute", 1), "us"))
        rows.append(table.ratio(f"{what}, p99", pairs(case, "execute", 2), "us"))
    scaling = table.ratio("8 threads, events relative to 1 thread",
                          [(eight["execute"][0], one["execute"][0])
                           for eight, one in zip(found["8"], found["1"])], "/s")
    scaling.at_least = 1.5
    return rows + [scaling]


def rows(bench):
    quick = ["--calls", 20, "--block", 10, "--rounds", 2]
    burst = bench.run("jx_bench_execute", *(quick if bench.quick else []))
    # Intervals like on a busy screen: caches and processor have cooled down between two calls.
    paced = ["--pace-us", 3000,
             *(quick if bench.quick else ["--calls", 400, "--block", 50, "--rounds", 5])]
    paced += ["--cases", "purchase_1,purchase_4"]
    offline = bench.run("jx_bench_execute", *paced)
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder, \
            nginx.Server(folder) as server:
        delivered = bench.run("jx_bench_execute", *paced, "--to", server.host, "--ca", server.ca)
    return (burst_rows(burst) + paced_rows(offline, "paced, offline", 1.3) +
            write_rows(offline) + paced_rows(delivered, "paced, delivered", 1.5))
