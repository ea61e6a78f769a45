#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Runs a fleet of installations against two gateways and three brokers, kills all of them again
and again, and checks that every event that was executed is in the stream exactly once."""

import argparse
import contextlib
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

from faults import CAUGHT_UP_SECONDS, Faults, ShortFaults
from nats import NatsConnection, NatsError
from parts import (Balancer, Broker, FleetError, Gateway, Installation, becomes_true,
                   wait_for)
from tally import Tally

STREAM = "EVENTS"
# Bytes that a node needs on its disk: the events, and its log until it is compacted.
BYTES_PER_EVENT = 5_000
SPARE_BYTES = 128 << 20
# A television may send an event again minutes or days later. The brokers drop repeats only within
# this window, which therefore covers the run; `jx gateway drain` drops later ones. The window must
# also be longer than the time for which a broker is down: nats-server 2.9 applies the end of its
# log again when it starts, and drops what it has already stored only by the event ID.
DUPLICATE_WINDOW_SECONDS = 24 * 3600
DRAIN_SECONDS = 300


def report(text):
    print(f"fleet: {text}", flush=True)


class Fleet:
    def __init__(self, options):
        self.options = options
        self.folder = tempfile.mkdtemp(prefix="jx-fleet-")
        self.disk = None  # mount point of a small disk
        self.metrics = {}
        self.over = threading.Event()
        stores = [os.path.join(self.folder, f"store-{i}") for i in range(3)]
        self.brokers = [Broker(f"broker-{i}", self.folder, stores[i]) for i in range(3)]
        self.gateways = [Gateway(f"gateway-{i}", self.folder, options.jx, self.brokers)
                         for i in range(2)]
        self.balancer = Balancer("balancer", self.folder, self.gateways)
        self.installations = [
            Installation(i, self.folder, options.installation, self.balancer, options.rate,
                         options.seed) for i in range(options.installations)]
        self.small_disk = None  # broker on the small disk
        self.disk_was_full = False

    def parts(self):
        return [*self.installations, self.balancer, *self.gateways, *self.brokers]

    def mount_small_disk(self):
        disk = os.path.join(self.folder, "small-disk")
        os.mkdir(disk)
        # The run lasts longer than the faults if the brokers need time.
        events = self.options.installations * self.options.rate * (2 * self.options.seconds + 120)
        size = SPARE_BYTES + events * BYTES_PER_EVENT
        command = ["mount", "-t", "tmpfs", "-o", f"size={size}", "none", disk]
        if subprocess.run(command, capture_output=True).returncode != 0:
            report("a small disk cannot be mounted (as root only): no disk will be full")
            return
        self.disk = disk
        self.small_disk = self.brokers[-1]
        self.small_disk.store = os.path.join(disk, "store")

    def start(self):
        self.mount_small_disk()
        for broker in self.brokers:
            broker.configure(self.brokers)
            broker.start()
        # `setup` waits for the cluster.
        command = [self.options.jx, "gateway", "setup", "--replicas", "3", "--duplicate-window",
                   str(self.options.window)]
        for broker in self.brokers:
            command += ["--nats", broker.url()]
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        self.balancer.configure()
        for part in (*self.gateways, self.balancer):
            part.start()
        self.wait_until_caught_up(CAUGHT_UP_SECONDS)
        for gateway in self.gateways:
            wait_for(f"{gateway.name} to be ready", gateway.is_ready, CAUGHT_UP_SECONDS)
        threading.Thread(target=self.watch_metrics, daemon=True).start()
        for installation in self.installations:
            installation.start()

    def wait_until_caught_up(self, seconds):
        wait_for("brokers to catch up",
                 lambda: all(broker.is_caught_up() for broker in self.brokers), seconds)

    def watch_metrics(self):
        """Reads the counters of the gateways until the end: a kill resets them."""
        while not self.over.wait(0.5):
            for gateway in self.gateways:
                if gateway.is_running():
                    values = gateway.metrics()
                    if values:
                        self.metrics[gateway.process.pid] = values

    def total(self, metric):
        return int(sum(values.get(metric, 0) for values in self.metrics.values()))

    def refusals(self):
        """Returns the number of refused requests by reason."""
        pattern = re.compile(r'jx_gateway_requests_refused_total\{reason="(\w+)"\}')
        names = {name for values in self.metrics.values() for name in values}
        found = {match[1]: self.total(match[0]) for match in map(pattern.fullmatch, names) if match}
        return sorted((reason, count) for reason, count in found.items() if count)

    def finish(self):
        """Lets the installations empty their queues. Returns those that have not within time."""
        for installation in self.installations:
            installation.finish()
        end = time.monotonic() + DRAIN_SECONDS
        while time.monotonic() < end and any(each.is_running() for each in self.installations):
            time.sleep(0.2)
        self.over.set()
        return [each for each in self.installations if each.process.poll() != 0]

    def stored(self):
        """Returns the number of messages of each node that must have all of them. NATS server 2.9
        continues without a message that it could not write to a full disk; the other nodes, which
        are the majority, have it."""
        return [broker.stored(STREAM) for broker in self.brokers
                if not self.disk_was_full or broker is not self.small_disk]

    def has_complete_leader(self, connection):
        """Returns whether the node that consumers read from must have all messages. Otherwise asks
        it to hand over."""
        try:
            leader = connection.request(f"$JS.API.STREAM.INFO.{STREAM}")["cluster"].get("leader")
            lacks = self.disk_was_full and leader == self.small_disk.name
            if lacks:
                connection.request(f"$JS.API.STREAM.LEADER.STEPDOWN.{STREAM}")
        except (NatsError, OSError):
            return False  # during an election
        return bool(leader) and not lacks

    def read(self):
        tally = Tally()
        for installation in self.installations:
            tally.read_ledger(installation.number, installation.ledger)
        self.wait_until_caught_up(CAUGHT_UP_SECONDS)
        # If they do not agree in time, a node lacks events or has some twice: see findings_of.
        becomes_true(lambda: len(set(self.stored())) == 1, CAUGHT_UP_SECONDS)
        with NatsConnection(self.brokers[0].port, timeout=60) as connection:
            wait_for("a leader", lambda: self.has_complete_leader(connection), CAUGHT_UP_SECONDS)
            for message in connection.messages(STREAM):
                tally.read_message(message)
        return tally

    def end(self, keep):
        self.over.set()
        for part in self.parts():
            part.kill()
        if self.disk:
            if keep:
                with contextlib.suppress(OSError):  # it may not have started
                    shutil.copytree(self.small_disk.store, os.path.join(self.folder, "store-2"))
            subprocess.run(["umount", self.disk], check=False)
        if keep:
            report(f"files kept in {self.folder}")
        else:
            shutil.rmtree(self.folder, ignore_errors=True)


def print_table(rows):
    width = max(len(name) for name, _ in rows)
    for name, value in rows:
        print(f"  {name:<{width}}  {value:>9}")


def findings_of(fleet, faults, tally, unfinished):
    """Returns a line for each rule that the run broke."""
    lines = list(faults.errors)
    lines += [f"{each.name} did not empty its queue" for each in unfinished]
    lines += [f"{part.name} has ended by itself: {part.process.returncode}"
              for part in (fleet.balancer, *fleet.gateways, *fleet.brokers)
              if not part.is_running()]
    for name, found in (("lost", tally.lost()), ("twice", tally.twice()), ("wrong", tally.wrong),
                        ("dropped or rejected by the library", tally.not_delivered)):
        if found:
            lines.append(f"{name}: {len(found)}, such as {found[:10]}")
    killed = faults.counts["installations killed"]
    if len(tally.unrecorded()) > killed:
        lines.append(f"{len(tally.unrecorded())} events without a record, after {killed} kills")
    if not tally.executed:
        lines.append("no event was executed")
    read = sum(tally.stored.values())
    if set(fleet.stored()) != {read}:
        lines.append(f"the nodes have different numbers of messages: {fleet.stored()}; read {read}")
    return lines


def print_tally(fleet, faults, tally):
    rows = [("executed", len(tally.executed)), ("stored", sum(tally.stored.values())),
            ("unrecorded (killed before the record)", len(tally.unrecorded())),
            ("repeats that the brokers dropped, at least *",
             fleet.total("jx_gateway_events_duplicate_total")),
            *((f"refused: {reason}, at least *", count) for reason, count in fleet.refusals()),
            *sorted(faults.counts.items())]
    rows += [("lost", len(tally.lost())), ("twice", len(tally.twice()))]
    print_table(rows)
    print("  * counted by the gateways; what they counted in the last half second before a kill is"
          " missing")


def run(fleet):
    """Returns whether every event is in the stream once."""
    options = fleet.options
    faults = (ShortFaults if options.short else Faults)(fleet, options.seed)
    report(f"{options.installations} installations, seed {options.seed}, folder {fleet.folder}")
    fleet.start()
    start = time.monotonic()
    faults.start()
    while time.monotonic() < start + options.seconds and not faults.errors:
        time.sleep(0.2)
    if options.short:
        faults.threads[2].join()
    faults.stop()
    report(f"faults ended after {time.monotonic() - start:.0f} s; emptying the queues")
    unfinished = fleet.finish()
    tally = fleet.read()
    print_tally(fleet, faults, tally)
    findings = findings_of(fleet, faults, tally, unfinished)
    for line in findings:
        report(f"FAILED: {line}")
    return not findings


def options_from_arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--jx", required=True, help="the program jx")
    parser.add_argument("--installation", required=True, help="the program of an installation")
    parser.add_argument("--seconds", type=int, default=180, help="duration of the faults")
    parser.add_argument("--installations", type=int, default=20)
    parser.add_argument("--rate", type=int, default=10, help="events a second per installation")
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(1_000_000))
    parser.add_argument("--window", type=int, default=DUPLICATE_WINDOW_SECONDS,
                        help="duplicate window of the brokers; a short one makes the test fail")
    parser.add_argument("--long-freezes", action="store_true",
                        help="freeze brokers for up to 10 s instead of 2.5 s")
    parser.add_argument("--short", action="store_true", help="each kind of fault once")
    options = parser.parse_args()
    if options.short:
        options.installations, options.seconds = 4, 0
    return options


def main():
    fleet = Fleet(options_from_arguments())
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    passed = False
    try:
        passed = run(fleet)
    except (FleetError, NatsError, OSError, subprocess.CalledProcessError) as error:
        report(f"FAILED: {error}")
    finally:
        fleet.end(keep=not passed)
    report("passed" if passed else "FAILED")
    sys.exit(0 if passed else 1)


if __name__ == "__main__":
    main()
