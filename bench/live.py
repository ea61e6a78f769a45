# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Delivery to nginx while events are executed: jx_bench_drain compared with jx_bench_curl (as fast
as possible) and jx_bench_easy (paced)."""

import os
import shutil
import tempfile

import nginx
import table

LIVE = 20_000
PACED = 2_000
PACE_US = 3_000


class Live:
    """The programs that execute and deliver events, and their baselines."""

    def __init__(self, bench, folder, server):
        self.bench, self.server = bench, server
        self.state = os.path.join(folder, "state")
        self.bodies = os.path.join(folder, "bodies")
        self.store = os.path.join(folder, "store")
        self.url = f"{server.host}/events?jx_s=3311&token=a-source-key"

    def create_bodies(self, events):
        """Creates the bodies that the baselines post. Nothing listens at the default address."""
        self.bench.text("jx_bench_application", "--state", self.state, "--events", events,
                        "--bodies", self.bodies)

    def library(self, events, *options):
        shutil.rmtree(self.state, ignore_errors=True)
        os.sync()
        return checked(self.bench.run("jx_bench_drain", "--state", self.state, "--to",
                                      self.server.host, "--ca", self.server.ca, "--events",
                                      events, *options), events)

    def multi(self, events, in_flight):
        return checked(self.bench.run("jx_bench_curl", "--bodies", self.bodies, "--url", self.url,
                                      "--ca", self.server.ca, "--connections", 1, "--in-flight",
                                      in_flight), events)

    def easy(self, events, *options):
        return checked(self.bench.run("jx_bench_easy", "--bodies", self.bodies, "--url", self.url,
                                      "--ca", self.server.ca, "--events", events, "--pace-us",
                                      PACE_US, *options), events)


def checked(result, events):
    if result["delivered"] != events:
        raise RuntimeError(f"{result['delivered']} of {events} events were delivered")
    return result


def rows(bench):
    live, paced = (400, 50) if bench.quick else (LIVE, PACED)
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder, \
            nginx.Server(folder) as server:
        programs = Live(bench, folder, server)
        programs.create_bodies(live)
        return live_rows(programs, live, 1 if bench.quick else 5) + \
            paced_rows(programs, paced, 1 if bench.quick else 5)


def live_rows(programs, events, rounds):
    server = programs.server
    server.clear_log()
    in_flight = programs.library(events, "--watch")["in_flight"]
    seen = nginx.summary(server.requests())
    if seen.requests != events or seen.statuses != ["204"]:
        raise RuntimeError(f"the server received {seen}")
    pairs = [(programs.library(events), programs.multi(events, in_flight)) for _ in range(rounds)]
    note = (f"{', '.join(seen.protocols)}, {seen.connections} connection(s), {in_flight} in flight; "
            "baseline: 1 connection")
    what = f"{events:,} events executed and delivered"
    return [table.ratio(what, [(a["ms"], b["ms"]) for a, b in pairs], "ms", 1.5, note),
            table.ratio(f"{what}, processor time",
                        [(a["cpu_ms"], b["cpu_ms"]) for a, b in pairs], "ms")]


def paced_rows(programs, events, rounds):
    pace = ["--pace-us", PACE_US]
    runs = [(programs.library(events, *pace), programs.easy(events, "--store", programs.store),
             programs.easy(events)) for _ in range(rounds)]
    each = [[run["cpu_ms"] * 1_000 / events for run in round_] for round_ in runs]
    what = f"processor time of an event, {events:,} paced and delivered"
    return [table.ratio(what, [(own, floor) for own, floor, _ in each], "us", 1.15,
                        "baseline: RapidJSON, one write, libcurl easy"),
            table.ratio(f"{what}, compared with libcurl alone", [(own, bare) for own, _, bare in each],
                        "us")]
