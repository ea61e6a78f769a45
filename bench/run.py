#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Runs the benchmarks and prints one table of results and their baselines.

    run.py --programs FOLDER [--quick] [--runs N] [--only PART,...] [--json FILE]

Results are quoted, never asserted: the exit status is 1 only if a measurement failed.
"""

import argparse
import json
import os
import platform
import subprocess
import sys

import drain
import execute
import launch
import live
import parts
import peers
import size
import table


class Bench:
    """The benchmark programs, and whether the run is a quick one."""

    def __init__(self, programs, quick):
        self.programs = programs
        self.quick = quick

    def path(self, program):
        return os.path.join(self.programs, program)

    def text(self, program, *options):
        """Runs the program and returns its output."""
        command = [self.path(program), *map(str, options)]
        result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                check=False, text=True)
        if result.returncode != 0:
            raise RuntimeError(f"{' '.join(command)} exited with status {result.returncode}: "
                               f"{result.stderr.strip()}")
        return result.stdout

    def run(self, program, *options):
        """Runs the program and returns its output, parsed as JSON."""
        return json.loads(self.text(program, *options))


def measure_parts(bench):
    return parts.rows(bench.run("jx_bench", *parts.options(bench.quick)))


PARTS = {
    "execute": execute.rows,
    "threads": execute.thread_rows,
    "drain": drain.rows,
    "live": live.rows,
    "start": launch.start_and_memory_rows,
    "idle": launch.idle_rows,
    "size": size.rows,
    "parts": measure_parts,
    "peers": peers.rows,
}


def measure(bench, parts):
    """Runs the parts once and returns their rows, and the names of the parts that failed."""
    rows, failed = [], set()
    for part in parts:
        print(f"bench: {part}", file=sys.stderr)
        try:
            rows += PARTS[part](bench)
        except (RuntimeError, OSError, ValueError, KeyError, subprocess.SubprocessError) as error:
            failed.add(part)
            print(f"bench: {part} FAILED: {error!r}", file=sys.stderr)
    return rows, failed


def machine():
    with open("/proc/loadavg", encoding="ascii") as file:
        load = " ".join(file.read().split()[:3])
    return f"{platform.system()} {platform.machine()}, {os.cpu_count()} processors, load {load}"


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--programs", required=True, help="folder of the benchmark programs")
    parser.add_argument("--quick", action="store_true",
                        help="check that everything runs, without size")
    parser.add_argument("--runs", type=int, default=1,
                        help="measure everything N times and report the medians [1]")
    parser.add_argument("--only", default="",
                        help="run these parts: " + ", ".join(PARTS) + " [all]")
    parser.add_argument("--json", help="write the results to this file too")
    parser.add_argument("--commit", default="", help="print this commit with the results")
    return parser.parse_args()


def main():
    options = arguments()
    parts = [part for part in options.only.split(",") if part] or [
        part for part in PARTS if part != "size" or not options.quick]
    unknown = [part for part in parts if part not in PARTS]
    if unknown:
        sys.exit(f"bench: unknown part: {', '.join(unknown)}; PART must be one of: "
                 f"{', '.join(PARTS)}")
    bench = Bench(options.programs, options.quick)
    where = machine()
    runs, failed = zip(*[measure(bench, parts) for _ in range(max(options.runs, 1))])
    rows, failed = table.medians(runs), sorted(set().union(*failed))
    print(f"bench: {options.commit}{', ' if options.commit else ''}{where}")
    print(table.render(rows))
    if options.json:
        with open(options.json, "w", encoding="utf-8") as file:
            json.dump({"commit": options.commit, "machine": where, "quick": options.quick,
                       "runs": options.runs, "failed": failed, "rows": table.as_json(rows)}, file, indent=1)
    if failed:
        sys.exit(f"bench: FAILED: {', '.join(failed)}")


if __name__ == "__main__":
    main()
