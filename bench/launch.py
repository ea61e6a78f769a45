# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Start, memory and idle process: rows of jx_bench_application compared with jx_bench_empty."""

import contextlib
import os
import statistics
import subprocess
import tempfile
import time

import nginx
import table

QUEUED = 10_000


def launch(bench, rounds, seed, state, *options):
    """Runs the application and the empty program alternately and returns the rounds."""
    return bench.run("jx_bench_launch", rounds, seed, state, bench.path("jx_bench_application"),
                     bench.path("jx_bench_empty"), "--state", state, *options)


def pairs(rounds, key, factor=1.0):
    return [(each["program"][key] * factor, each["baseline"][key] * factor) for each in rounds]


def start_and_memory_rows(bench):
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder:
        seed, state = os.path.join(folder, "seed"), os.path.join(folder, "state")
        queued = 500 if bench.quick else QUEUED
        bench.text("jx_bench_application", "--state", seed, "--events", queued)
        count = 3 if bench.quick else 41
        empty = launch(bench, count, "-", state)
        full = launch(bench, count, seed, state)
        return (start_rows("empty state", empty, 0.8) +
                start_rows(f"{queued:,} queued", full, 15) +
                [memory_row("ready", empty, "ready_kib", 1.2)] +
                paced_memory_rows(bench, folder, state) +
                [memory_row(f"ready with {queued:,} queued", full, "ready_kib", 5)])


def start_rows(what, rounds, at_most):
    return [
        table.difference(f"start to ready, {what}", pairs(rounds, "ready_us", 0.001), "ms",
                         at_most),
        table.difference(f"start to end of process, {what}", pairs(rounds, "whole_us", 0.001),
                         "ms"),
    ]


def memory_row(what, rounds, key, at_most):
    own = statistics.median(a - b for a, b in pairs(rounds, "anonymous_kib", 1 / 1024))
    return table.difference(f"peak memory, {what}", pairs(rounds, key, 1 / 1024), "MiB", at_most,
                            f"{own:+.2f} without file pages")


def paced_memory_rows(bench, folder, state):
    """Returns the rows of paced events, offline and delivered."""
    events = 50 if bench.quick else 2_000
    count = 1 if bench.quick else 3
    paced = ["--events", events, "--pace-us", 3000]
    offline = launch(bench, count, "-", state, *paced)
    with nginx.Server(folder) as server:
        online = launch(bench, count, "-", state, *paced, "--to", server.host, "--ca", server.ca,
                        "--deliver")
    return [memory_row(f"after {events:,} paced events, offline", offline, "end_kib", 3),
            memory_row(f"after {events:,} paced events, delivered", online, "end_kib", 4)]


class Idling:
    """An idle process."""

    def __init__(self, bench, *options):
        command = [bench.path("jx_bench_application"), "--stay", *map(str, options)]
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True)
        if not self.process.stdout.readline():
            self.end()
            raise RuntimeError(f"{' '.join(command)} failed")

    def switches(self):
        """Returns the number of context switches of each thread except the application thread."""
        folder = f"/proc/{self.process.pid}/task"
        counts = {}
        for thread in os.listdir(folder):
            if int(thread) == self.process.pid:
                continue
            with open(f"{folder}/{thread}/status", encoding="ascii") as file:
                counts[thread] = sum(int(line.split()[1]) for line in file
                                     if "ctxt_switches" in line)
        return counts

    def end(self):
        self.process.communicate()


def idle_rows(bench):
    seconds, settling = (1, 3) if bench.quick else (20, 5)
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder, contextlib.ExitStack() as stack:
        server = stack.enter_context(nginx.Server(folder))
        kinds = {
            "nothing sent yet": ["--state", f"{folder}/nothing"],
            "10 events delivered": ["--state", f"{folder}/some", "--to", server.host, "--ca",
                                    server.ca, "--events", 10, "--deliver"],
        }
        processes = {}
        for kind, options in kinds.items():
            processes[kind] = Idling(bench, *options)
            stack.callback(processes[kind].end)
        time.sleep(settling)
        before = {kind: each.switches() for kind, each in processes.items()}
        time.sleep(seconds)
        after = {kind: each.switches() for kind, each in processes.items()}
    rows = []
    for kind in kinds:
        woken = sum(count - before[kind].get(thread, 0) for thread, count in after[kind].items())
        rows += [table.absolute(f"idle for {seconds} s, {kind}, wake-ups", woken, "", 0),
                 table.absolute(f"idle, {kind}, threads of the library", len(after[kind]), "", 1)]
    return rows
