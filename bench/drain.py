# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Delivery of ten thousand queued requests to nginx: jx_bench_drain compared with jx_bench_curl."""

import os
import shutil
import tempfile

import nginx
import table

QUEUED = 10_000


def rows(bench):
    queued = 200 if bench.quick else QUEUED
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder:
        holder, port = nginx.reserve_port()
        server = nginx.Server(folder, holder, port)
        seed, bodies = os.path.join(folder, "seed"), os.path.join(folder, "bodies")
        # No server listens on the port yet, so the events stay queued.
        bench.text("jx_bench_application", "--state", seed, "--to", server.host, "--events", queued,
                   "--bodies", bodies)
        with server:
            return measure(bench, Delivery(folder, seed, bodies, server, queued))


class Delivery:
    """The two programs that empty the queue."""

    def __init__(self, folder, seed, bodies, server, queued):
        self.state = os.path.join(folder, "state")
        self.seed, self.bodies, self.server, self.queued = seed, bodies, server, queued

    def library(self, bench, *options):
        shutil.rmtree(self.state, ignore_errors=True)
        shutil.copytree(self.seed, self.state)
        os.sync()
        return self.checked(bench.run("jx_bench_drain", "--state", self.state, "--to",
                                      self.server.host, "--ca", self.server.ca, *options))

    def baseline(self, bench, connections, in_flight):
        return self.checked(bench.run(
            "jx_bench_curl", "--bodies", self.bodies, "--url",
            f"{self.server.host}/events?jx_s=3311&token=a-source-key", "--ca", self.server.ca,
            "--connections", connections, "--in-flight", in_flight))

    def checked(self, result):
        if result["delivered"] != self.queued:
            raise RuntimeError(f"{result['delivered']} of {self.queued} requests were delivered")
        return result

    def observed(self, send):
        """Returns the result of `send`, and a summary of the requests that the server received."""
        self.server.clear_log()
        result = send()
        summary = nginx.summary(self.server.requests())
        if summary.requests != self.queued or summary.statuses != ["204"]:
            raise RuntimeError(f"the server received {summary}")
        return result, summary


def measure(bench, delivery):
    watched, own = delivery.observed(lambda: delivery.library(bench, "--watch"))
    in_flight = watched["in_flight"]
    _, under = delivery.observed(lambda: delivery.baseline(bench, own.connections, in_flight))
    if (under.connections, under.protocols) != (own.connections, own.protocols):
        raise RuntimeError(f"the library sends by {own}, the baseline by {under}")
    rounds = [(delivery.library(bench), delivery.baseline(bench, own.connections, in_flight))
              for _ in range(2 if bench.quick else 9)]
    note = f"{', '.join(own.protocols)}, {own.connections} connection(s), {in_flight} in flight"
    what = f"{delivery.queued:,} queued to nginx"
    return [
        table.ratio(what, [(a["ms"], b["ms"]) for a, b in rounds], "ms", 1.25, note),
        table.ratio(f"{what}, processor time",
                    [(a["cpu_ms"], b["cpu_ms"]) for a, b in rounds], "ms"),
    ]
