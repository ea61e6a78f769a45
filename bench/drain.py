# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Ten thousand queued requests delivered to nginx: rows of jx_bench_drain over jx_bench_curl."""

import os
import shutil
import tempfile

import receiver
import table

QUEUED = 10_000


def rows(bench):
    queued = 200 if bench.quick else QUEUED
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder:
        holder, port = receiver.reserve_port()
        server = receiver.Receiver(folder, holder, port)
        seed, bodies = os.path.join(folder, "seed"), os.path.join(folder, "bodies")
        # Nobody listens at the port yet, so they stay in the queue.
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

    def floor(self, bench, connections, in_flight):
        return self.checked(bench.run(
            "jx_bench_curl", "--bodies", self.bodies, "--url",
            f"{self.server.host}/events?jx_s=3311&token=a-source-key", "--ca", self.server.ca,
            "--connections", connections, "--in-flight", in_flight))

    def checked(self, result):
        if result["delivered"] != self.queued:
            raise RuntimeError(f"{result['delivered']} of {self.queued} were delivered")
        return result

    def way_of(self, send):
        """What `send` gives, and how its requests reached the server."""
        self.server.forget()
        result = send()
        way = receiver.way(self.server.requests())
        if way.requests != self.queued or way.statuses != ["204"]:
            raise RuntimeError(f"the server saw {way}")
        return result, way


def measure(bench, delivery):
    watched, own = delivery.way_of(lambda: delivery.library(bench, "--watch"))
    in_flight = watched["in_flight"]
    _, under = delivery.way_of(lambda: delivery.floor(bench, own.connections, in_flight))
    if (under.connections, under.protocols) != (own.connections, own.protocols):
        raise RuntimeError(f"the library sends by {own}, the floor by {under}")
    rounds = [(delivery.library(bench), delivery.floor(bench, own.connections, in_flight))
              for _ in range(2 if bench.quick else 9)]
    note = f"{', '.join(own.protocols)}, {own.connections} connection(s), {in_flight} in flight"
    what = f"{delivery.queued:,} queued to nginx"
    return [
        table.ratio(what, [(a["ms"], b["ms"]) for a, b in rounds], "ms", 2.0, note),
        table.ratio(f"{what}, processor time",
                    [(a["cpu_ms"], b["cpu_ms"]) for a, b in rounds], "ms"),
    ]
