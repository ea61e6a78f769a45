# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The processes of the gateway benchmark: three nats-server nodes, gateways, and baselines."""

import os
import re
import shutil
import socket
import subprocess
import time
import urllib.request

NODE = """
server_name: n{number}
listen: 127.0.0.1:{port}
jetstream {{ store_dir: "{folder}/n{number}" }}
cluster {{ name: bench, listen: 127.0.0.1:{route}, routes: [ {routes} ] }}
"""


def free_ports(count):
    holders = [socket.socket() for _ in range(count)]
    for holder in holders:
        holder.bind(("127.0.0.1", 0))
    ports = [holder.getsockname()[1] for holder in holders]
    for holder in holders:
        holder.close()
    return ports


class Process:
    """A child process, ended with the context. Its standard input stays open until then."""

    def __init__(self, *command):
        self.process = subprocess.Popen([str(word) for word in command], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                        text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.communicate(timeout=60)

    def line(self):
        text = self.process.stdout.readline()
        if not text:
            raise RuntimeError(f"{self.process.args[0]} ended with {self.process.wait()}")
        return text

    def processor_seconds(self):
        with open(f"/proc/{self.process.pid}/stat", encoding="ascii") as file:
            fields = file.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def resident_kib(self):
        with open(f"/proc/{self.process.pid}/status", encoding="ascii") as file:
            return int(re.search(r"VmRSS:\s+(\d+)", file.read()).group(1))


class Cluster:
    """Three nodes with the streams of the gateway, three replicas each."""

    def __init__(self, folder, program, count=3):
        self.folder = folder
        self.program = program
        self.ports = free_ports(2 * count)
        self.count = count
        self.nodes = []

    @property
    def options(self):
        return [word for port in self.ports[:self.count]
                for word in ("--nats", f"nats://127.0.0.1:{port}")]

    def __enter__(self):
        server = shutil.which("nats-server", path=os.environ.get("PATH", "") + ":/usr/sbin")
        routes = ", ".join(f"nats://127.0.0.1:{port}" for port in self.ports[self.count:])
        for number in range(self.count):
            file = os.path.join(self.folder, f"n{number}.conf")
            with open(file, "w", encoding="ascii") as out:
                out.write(NODE.format(number=number, port=self.ports[number], folder=self.folder,
                                      route=self.ports[self.count + number], routes=routes))
            self.nodes.append(Process(server, "-c", file))
        subprocess.run([self.program, "gateway", "setup", *self.options,
                        "--replicas", str(self.count)], check=True, stdout=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        for node in self.nodes:
            node.__exit__()


class Gateway(Process):
    """One `jx gateway`. Several share a port."""

    def __init__(self, program, cluster, certificate, key, port=0, threads=None):
        threads = ["--threads", threads] if threads else []
        super().__init__(program, "gateway", "--port", port, "--admin-port", 0, "--cert",
                         certificate, "--key", key, *cluster.options, *threads)
        self.port = int(re.search(r":(\d+)/events", self.line()).group(1))
        self.admin = re.search(r"http://\S+", self.line()).group(0)
        self._wait_until_ready()

    def _wait_until_ready(self):
        for _ in range(600):
            try:
                with urllib.request.urlopen(self.admin + "readyz", timeout=5):
                    return
            except OSError:
                time.sleep(0.1)
        raise RuntimeError("the gateway is not ready")

    def metric(self, name):
        with urllib.request.urlopen(self.admin + "metrics", timeout=10) as response:
            text = response.read().decode()
        return float(re.search(rf"^{re.escape(name)} (\S+)$", text, re.MULTILINE).group(1))
