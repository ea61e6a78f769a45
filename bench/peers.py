# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The library compared with other ways to queue events: rows of the jx_bench_peer programs."""

import collections
import os
import shutil
import signal
import statistics
import subprocess
import tempfile

import nginx
import table

Kind = collections.namedtuple("Kind", "name program options divisor")

# The first is the baseline of the others. Each transaction of "sqlite" waits for the disk, so it
# gets fewer events; its events per second do not depend on their number.
KINDS = (Kind("ours", "jx_bench_peer_library", (), 1),
         Kind("memory", "jx_bench_peer_memory", (), 1),
         Kind("sqlite", "jx_bench_peer_sqlite", (), 10),
         Kind("sqlite-wal", "jx_bench_peer_sqlite", ("--wal",), 1))

Sizes = collections.namedtuple("Sizes", "rounds burst paced many killed")
FULL = Sizes(5, 2_000, 400, 20_000, 400)
QUICK = Sizes(1, 50, 20, 200, 20)


class Peers:
    """Runs the programs, each with a storage folder per kind."""

    def __init__(self, bench, folder, server):
        self.bench, self.folder, self.server = bench, folder, server
        self.body = os.path.join(folder, "body")
        self.counted = 0
        bench.text("jx_bench_application", "--state", os.path.join(folder, "seed"), "--events", 1,
                   "--bodies", self.body)

    def options(self, kind, *options):
        return ("--state", os.path.join(self.folder, kind.name), "--body", self.body,
                "--to", self.server.host, "--ca", self.server.ca, *kind.options, *options)

    def empty(self, kind):
        state = os.path.join(self.folder, kind.name)
        shutil.rmtree(state, ignore_errors=True)
        os.mkdir(state)
        os.sync()

    def run(self, kind, *options):
        self.empty(kind)
        return self.bench.run(kind.program, *self.options(kind, *options))

    def kill(self, kind, *options):
        """Runs a process that is killed directly after its last call."""
        self.empty(kind)
        command = (self.bench.path(kind.program), *self.options(kind, *options, "--kill"))
        status = subprocess.run(map(str, command), check=False).returncode
        if status != -signal.SIGKILL:
            raise RuntimeError(f"{kind.program} exited with status {status}")

    def deliver_rest(self, kind):
        """Delivers the events that a killed process has left."""
        self.bench.run(kind.program, *self.options(kind, "--deliver"))

    def newly_delivered(self):
        """Returns the number of events that the server received since the last call."""
        before, self.counted = self.counted, self.server.events()
        return self.counted - before


def offline_round(peers, sizes):
    result = {"empty": int(peers.bench.text("jx_bench_empty").split()[1])}
    for kind in KINDS:
        burst = peers.run(kind, "--events", max(sizes.burst // kind.divisor, 1))
        paced = peers.run(kind, "--events", sizes.paced, "--pace-us", 3000, "--inspect", 20)
        result[kind] = {"burst": burst, "offline": paced}
    return result


def online_round(peers, sizes):
    result = {}
    for kind in KINDS:
        paced = peers.run(kind, "--events", sizes.paced, "--pace-us", 3000, "--deliver")
        many = peers.run(kind, "--events", sizes.many // kind.divisor, "--deliver")
        result[kind] = {"delivered": paced, "many": many}
    return result


# (name, unit, run, key)
TIMES = (
    ("call, burst, p50", "us", "burst", "p50"),
    ("call, paced, offline, p50", "us", "offline", "p50"),
    ("call, paced, delivered, p50", "us", "delivered", "p50"),
    ("call, paced, delivered, p99", "us", "delivered", "p99"),
    ("processor time per event, paced, delivered", "us", "delivered", "cpu"),
    ("executed and delivered", "/s", "many", "per_second"),
)


def name(measurement, kind):
    return f"peers, {measurement}, {kind.name}"


def compared(measurement, unit, values):
    """Returns a row per kind from the values of each round, compared with those of the library."""
    own = values[KINDS[0]]
    result = [table.Row(name(measurement, KINDS[0]), statistics.median(own), unit)]
    for kind in KINDS[1:]:
        result.append(table.ratio(name(measurement, kind), list(zip(values[kind], own)), unit))
    return result


def rows_of_rounds(rounds):
    result = []
    for measurement, unit, run, key in TIMES:
        values = {kind: [each[kind][run][key] for each in rounds] for kind in KINDS}
        result += compared(measurement, unit, values)
    longest = {kind: [max(each[kind]["delivered"]["longest"] for each in rounds) / 1000]
               for kind in KINDS}
    result += compared("call, paced, delivered, longest", "ms", longest)
    writes = [table.Row(name("writes per event, paced, offline", kind),
                        statistics.median(each[kind]["offline"]["writes"] for each in rounds), "")
              for kind in KINDS]
    memory = [table.difference(name("memory at ready", kind),
                               [(each[kind]["burst"]["ready_kib"] / 1024, each["empty"] / 1024)
                                for each in rounds], "MiB") for kind in KINDS]
    return result + writes + memory


def found_row(what, kind, sizes, before, rest):
    return table.Row(name(f"found after a kill, {what}", kind), before + rest,
                     f"of {sizes.killed}", note=f"{before} delivered before")


def kill_rows(peers, sizes):
    """Returns the rows of processes that are killed while the server receives their events."""
    result = []
    for kind in KINDS:
        peers.kill(kind, "--events", sizes.killed, "--pace-us", 3000)
        before = peers.newly_delivered()
        peers.deliver_rest(kind)
        result.append(found_row("delivered", kind, sizes, before, peers.newly_delivered()))
    return result


def rows(bench):
    sizes = QUICK if bench.quick else FULL
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder:
        server = nginx.Server(folder, *nginx.reserve_port())
        peers = Peers(bench, folder, server)
        # No server listens on the port yet.
        offline = [offline_round(peers, sizes) for _ in range(sizes.rounds)]
        for kind in KINDS:
            peers.kill(kind, "--events", sizes.killed)
        found = []
        with server:
            for kind in KINDS:
                peers.deliver_rest(kind)
                found.append(found_row("offline", kind, sizes, 0, peers.newly_delivered()))
            online = [online_round(peers, sizes) for _ in range(sizes.rounds)]
            peers.newly_delivered()
            found += kill_rows(peers, sizes)
        rounds = [{**one, **{kind: {**one[kind], **other[kind]} for kind in KINDS}}
                  for one, other in zip(offline, online)]
        return rows_of_rounds(rounds) + found
