# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The faults of the fleet test: who is killed, frozen or filled, and when."""

import collections
import os
import random
import signal
import socket
import ssl
import threading
import time

# Generous, because a loaded machine is slow, not wrong.
CAUGHT_UP_SECONDS = 180


class Faults:
    """Inflicts faults in threads of its own until `stop`. The choices follow from the seed; the
    moments also from the machine."""

    def __init__(self, fleet, seed):
        self.fleet = fleet
        self.seed = seed
        self.counts = collections.Counter()
        self.over = threading.Event()
        self.errors = []
        self.threads = []

    def start(self):
        for inflict in (self.kill_installations, self.kill_gateways, self.disturb_brokers,
                        self.send_rubbish):
            thread = threading.Thread(target=self._run, args=(inflict,), daemon=True)
            self.threads.append(thread)
            thread.start()

    def stop(self):
        """Returns when every fault is over: each process runs, each disk has space."""
        self.over.set()
        for thread in self.threads:
            thread.join()

    def _run(self, inflict):
        try:
            inflict(random.Random(f"{self.seed} {inflict.__name__}"))
        except Exception as error:  # any failure of a thread fails the run
            self.errors.append(f"{inflict.__name__}: {error!r}")

    def _kill(self, part, counted):
        if not part.kill():
            self.errors.append(f"{part.name} had ended by itself: {part.process.returncode}")
        self.counts[counted] += 1

    def pause(self, choose, least, most):
        """Returns whether the faults go on after a random time."""
        return not self.over.wait(choose.uniform(least, most))

    def kill_installations(self, choose):
        # On average each installation is killed once in 20 s.
        gap = 20 / len(self.fleet.installations)
        while self.pause(choose, 0, 2 * gap):
            installation = choose.choice(self.fleet.installations)
            self._kill(installation, "installations killed")
            self.over.wait(choose.uniform(0, 1))
            installation.start()

    def kill_gateways(self, choose):
        while self.pause(choose, 2, 8):
            # Sometimes both, so that the balancer has none.
            count = len(self.fleet.gateways) if choose.random() < 0.2 else 1
            gateways = choose.sample(self.fleet.gateways, count)
            for gateway in gateways:
                self._kill(gateway, "gateways killed")
            self.over.wait(choose.uniform(0, 2))
            for gateway in gateways:
                gateway.start()

    def disturb_brokers(self, choose):
        kinds = [self.kill_broker, self.freeze_broker, self.lose_quorum]
        if self.fleet.small_disk:
            kinds.append(self.fill_disk)
        while not self.over.is_set():
            # Each kind once in random order, kills twice as often.
            for inflict in choose.sample(kinds + [self.kill_broker], len(kinds) + 1):
                if not self.pause(choose, 1, 4):
                    return
                inflict(choose)
                # The next fault hits one node while the others have everything: quorum is kept.
                self.fleet.wait_until_caught_up(CAUGHT_UP_SECONDS)

    def kill_broker(self, choose):
        broker = choose.choice(self.fleet.brokers)
        self._kill(broker, "brokers killed")
        self.over.wait(choose.uniform(0, 5))
        broker.start()

    def freeze_broker(self, choose):
        broker = choose.choice(self.fleet.brokers)
        # Shorter than an election takes to begin, 4 s after the last message of the leader. After
        # one, a leader of nats-server 2.9 that goes on sometimes keeps events that it has only
        # proposed, and the nodes differ for ever: --long-freezes shows it.
        longest = 10 if self.fleet.options.long_freezes else 2.5
        broker.signal(signal.SIGSTOP)
        self.counts["brokers frozen"] += 1
        self.over.wait(choose.uniform(1, longest))
        broker.signal(signal.SIGCONT)

    def lose_quorum(self, choose):
        brokers = choose.sample(self.fleet.brokers, 2)
        for broker in brokers:
            self._kill(broker, "brokers killed")
        self.counts["quorum lost"] += 1
        self.over.wait(choose.uniform(2, 8))
        for broker in brokers:
            broker.start()

    def fill_disk(self, choose):
        broker = self.fleet.small_disk
        filler = os.path.join(os.path.dirname(broker.store), "filler")
        with open(filler, "wb", buffering=0) as file:
            try:
                while True:
                    file.write(bytes(65_536))
            except OSError:
                self.counts["disks filled"] += 1
                self.fleet.disk_was_full = True
            self.over.wait(choose.uniform(3, 10))
        os.remove(filler)
        # A broker does not use a disk again that was full: an operator frees space and restarts it.
        broker.terminate()
        broker.start()

    def send_rubbish(self, choose):
        senders = [self._garbage, self._slow_bytes, self._huge_body, self._other_site]
        while self.pause(choose, 0.2, 2):
            # To a gateway itself, too: the balancer keeps some rubbish from it.
            port, is_plain = choose.choice(
                [(self.fleet.balancer.port, False)] +
                [(gateway.port, True) for gateway in self.fleet.gateways])
            try:
                with socket.create_connection(("127.0.0.1", port), 5) as connection:
                    if not is_plain:
                        connection = _unverified_tls().wrap_socket(connection)
                    choose.choice(senders)(connection, choose)
            except OSError:  # refused or closed, as it should be
                pass
            self.counts["rubbish sent"] += 1

    def _garbage(self, connection, choose):
        connection.sendall(choose.randbytes(choose.randrange(1, 20_000)))

    def _slow_bytes(self, connection, _):
        for byte in b"POST /events HTTP/1.1\r\n":
            if self.over.wait(0.2):
                return
            connection.sendall(bytes([byte]))

    def _huge_body(self, connection, _):
        connection.sendall(b"POST /events?jx_s=1&token=fleet HTTP/1.1\r\nHost: fleet\r\n"
                           b"Content-Length: 50000000\r\n\r\n")
        for _ in range(800):
            connection.sendall(bytes(65_536))

    def _other_site(self, connection, _):
        body = b'{"event_name":"rubbish","event_id":"rubbish"}'
        connection.sendall(b"POST /events?jx_s=2&token=other HTTP/1.1\r\nHost: fleet\r\n"
                           b"Content-Length: %d\r\n\r\n%s" % (len(body), body))
        connection.recv(1000)


class ShortFaults(Faults):
    """Each kind of fault once, at the same time as the others."""

    def disturb_brokers(self, choose):
        kinds = [self.kill_broker, self.freeze_broker, self.lose_quorum]
        if self.fleet.small_disk:
            kinds.append(self.fill_disk)
        for inflict in choose.sample(kinds, len(kinds)):
            inflict(choose)
            self.fleet.wait_until_caught_up(CAUGHT_UP_SECONDS)


def _unverified_tls():
    context = ssl.create_default_context()
    context.check_hostname = False
    context.verify_mode = ssl.CERT_NONE
    return context
