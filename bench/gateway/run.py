#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Measures `jx gateway` with three nats-server nodes, next to its baselines.

    run.py --jx PROGRAM --bench PROGRAM [--quick]

Clients, gateways and brokers share this machine, so the results are far below those of separate
machines; the ratios to the baselines of the same run are what counts. Results are never asserted.
"""

import argparse
import contextlib
import json
import os
import subprocess
import tempfile

import cluster


def create_certificate(folder):
    certificate, key = os.path.join(folder, "cert.pem"), os.path.join(folder, "key.pem")
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt",
                    "ec_paramgen_curve:prime256v1", "-nodes", "-days", "1", "-subj",
                    "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", key,
                    "-out", certificate], check=True, stderr=subprocess.DEVNULL)
    return certificate, key


class Run:
    """The settings of a run."""

    def __init__(self, options, folder):
        self.jx, self.bench, self.quick = options.jx, options.bench, options.quick
        self.folder = folder
        self.seconds = 1 if options.quick else options.seconds
        self.certificate, self.key = create_certificate(folder)

    def load(self, port, connections, size):
        output = subprocess.run(
            [self.bench, "load", "--port", str(port), "--ca", self.certificate, "--connections",
             str(connections), "--bytes", str(size), "--seconds", str(self.seconds)],
            check=True, stdout=subprocess.PIPE, text=True).stdout
        return json.loads(output)

    def row(self, name, processes, port, connections, size):
        """Measures one load and prints it."""
        before = sum(process.processor_seconds() for process in processes)
        result = self.load(port, connections, size)
        used = sum(process.processor_seconds() for process in processes) - before
        result["microseconds"] = 1e6 * used / max(1, result["accepted"])
        print(f"| {name} | {connections} | {size // 1000} KB | {result['per_second']:,.0f} "
              f"| {result['p50_ms']:.1f} ms | {result['p99_ms']:.1f} ms "
              f"| {result['microseconds']:.0f} us | {result['refused']} |", flush=True)
        return result

    def serve(self, threads):
        return cluster.Process(self.bench, "serve", "--cert", self.certificate, "--key", self.key,
                               "--threads", threads)

    def gateways(self, nodes, count):
        stack = contextlib.ExitStack()
        first = stack.enter_context(cluster.Gateway(self.jx, nodes, self.certificate, self.key))
        result = [first]
        for _ in range(count - 1):
            result.append(stack.enter_context(cluster.Gateway(
                self.jx, nodes, self.certificate, self.key, first.port)))
        return stack, result


def publish(run, nodes, size):
    output = subprocess.run([run.bench, "publish", *nodes.options, "--bytes", str(size),
                             "--seconds", str(run.seconds)],
                            check=True, stdout=subprocess.PIPE, text=True).stdout
    rate = json.loads(output)["per_second"]
    print(f"| bare libnats publisher | 1 | {size // 1000} KB | {rate:,.0f} | | | | |", flush=True)


def measure_loads(run, nodes):
    print("| server | connections | body | events/s | p50 | p99 | processor time per event "
          "| refused |\n|---|---|---|---|---|---|---|---|")
    connections = [1, 50] if run.quick else [1, 10, 100, 1000]
    sizes = [1000] if run.quick else [1000, 3000, 30000]
    threads = os.cpu_count()
    with run.serve(threads) as server:
        port = int(server.line())
        for size in sizes:
            run.row("same server, no broker", [server], port, 100, size)
    for size in sizes:
        publish(run, nodes, size)
    for count in (1, 2):
        stack, gateways = run.gateways(nodes, count)
        with stack:
            loads = [(number, 1000) for number in connections]
            loads += [(100, size) for size in sizes if size != 1000]
            for number, size in loads:
                run.row(f"{count} gateway{'s' if count > 1 else ''}", gateways,
                        gateways[0].port, number, size)


def measure_idle(run, nodes):
    count = 100 if run.quick else 10_000
    stack, gateways = run.gateways(nodes, 1)
    with stack:
        before = gateways[0].resident_kib()
        with cluster.Process(run.bench, "idle", "--port", gateways[0].port, "--ca",
                             run.certificate, "--connections", count) as clients:
            clients.line()
            used = gateways[0].resident_kib() - before
            if gateways[0].metric("jx_gateway_connections") != count:
                raise RuntimeError("not all connections are open")
            busy = gateways[0].processor_seconds()
            result = run.load(gateways[0].port, 1, 1000)
            print(f"\n{count:,} idle TLS connections: {used / count:.1f} KiB each; with them, one "
                  f"client: p50 {result['p50_ms']:.2f} ms, p99 {result['p99_ms']:.2f} ms, "
                  f"refused {result['refused']}; processor time "
                  f"{gateways[0].processor_seconds() - busy:.2f} s in {run.seconds} s")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--jx", required=True, help="the program jx")
    parser.add_argument("--bench", required=True, help="the program jx_bench_gateway")
    parser.add_argument("--seconds", type=int, default=10, help="duration of each load [10]")
    parser.add_argument("--quick", action="store_true", help="check that everything runs")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder:
        run = Run(options, folder)
        with cluster.Cluster(folder, run.jx) as nodes:
            measure_loads(run, nodes)
            measure_idle(run, nodes)


if __name__ == "__main__":
    main()
