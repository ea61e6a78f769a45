# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Duration of each part of an execute alone: rows of jx_bench.

Measures processor time, so that other load during the thousands of repetitions does not count. No
part waits.
"""

import table

SUFFIXES = ("_median", "/iterations:2000")


def options(quick):
    return ["--benchmark_format=json", f"--benchmark_repetitions={2 if quick else 11}",
            "--benchmark_enable_random_interleaving=true",
            "--benchmark_report_aggregates_only=true"]


def name_of(result):
    name = result["name"]
    for suffix in SUFFIXES:
        name = name.removesuffix(suffix)
    return name


def rows(printed):
    # The benchmarks ran interleaved; restore the order of their definition.
    in_order = sorted(printed["benchmarks"], key=lambda result: result["family_index"])
    medians = {name_of(result): result for result in in_order
               if result.get("aggregate_name") == "median"}
    if "execute/next_millisecond" not in medians:
        raise RuntimeError("jx_bench printed no medians")
    whole = medians["execute/next_millisecond"]["cpu_time"]
    result = []
    for name, each in medians.items():
        row = table.Row(f"parts, {name.removeprefix('part/').replace('_', ' ')}",
                        each["cpu_time"], "us", note=f"{each['allocations']:.0f} allocations")
        if name.startswith("part/"):
            row.relation, row.against = "%", 100 * each["cpu_time"] / whole
        result.append(row)
    result.append(table.absolute("allocations, building a purchase with 4 items",
                                 medians["building"]["allocations"], "", 15))
    return result
