# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The processes of the fleet test: brokers, gateways, the balancer and installations."""

import json
import os
import random
import signal
import socket
import subprocess
import time
import urllib.error
import urllib.request

SITE, KEY = 1, "fleet"
SHIPPED_CONFIGURATION = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..",
                                     "deploy", "nginx.conf")


class FleetError(Exception):
    """The test itself cannot go on."""


def free_port():
    """Returns a port that is free, and below those that the system chooses for connections: a
    process that starts again must find its port free."""
    while True:
        port = random.SystemRandom().randrange(20_000, 32_000)
        with socket.socket() as attempt:
            try:
                attempt.bind(("127.0.0.1", port))
                return port
            except OSError:
                continue


def becomes_true(condition, seconds):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.1)
    return True


def wait_for(what, condition, seconds):
    if not becomes_true(condition, seconds):
        raise FleetError(f"{what} took more than {seconds} s")


def http_status(url, timeout=2):
    """Returns the status of a GET request, 0 without a response."""
    try:
        with urllib.request.urlopen(url, timeout=timeout) as response:
            return response.status
    except urllib.error.HTTPError as error:
        return error.code
    except (OSError, ValueError):
        return 0


class Part:
    """A process that is killed and started again. Its output is appended to a file."""

    def __init__(self, name, folder):
        self.name = name
        self.folder = folder
        self.process = None

    def command(self):
        raise NotImplementedError

    def log(self):
        return os.path.join(self.folder, self.name + ".log")

    def start(self):
        with open(self.log(), "ab") as log:
            self.process = subprocess.Popen(self.command(), stdin=subprocess.DEVNULL, stdout=log,
                                            stderr=log)

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def signal(self, number):
        if self.is_running():
            self.process.send_signal(number)

    def kill(self):
        """Ends the process with SIGKILL. Returns whether it was running."""
        was_running = self.is_running()
        if was_running:
            self.process.kill()
            self.process.wait()
        return was_running

    def terminate(self, seconds=30):
        self.signal(signal.SIGTERM)
        try:
            self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            self.kill()


class Broker(Part):
    def __init__(self, name, folder, store):
        super().__init__(name, folder)
        self.store = store
        self.port, self.cluster_port, self.monitor_port = free_port(), free_port(), free_port()

    def configure(self, brokers):
        routes = ", ".join(f'"nats://127.0.0.1:{other.cluster_port}"' for other in brokers)
        with open(os.path.join(self.folder, self.name + ".conf"), "w") as file:
            file.write(f"""server_name: {self.name}
listen: "127.0.0.1:{self.port}"
http: "127.0.0.1:{self.monitor_port}"
jetstream {{ store_dir: "{self.store}", max_file_store: 8G, max_memory_store: 64M }}
cluster {{ name: fleet, listen: "127.0.0.1:{self.cluster_port}", routes: [{routes}] }}
""")

    def command(self):
        return ["nats-server", "-c", os.path.join(self.folder, self.name + ".conf")]

    def url(self):
        return f"nats://127.0.0.1:{self.port}"

    def is_caught_up(self):
        """Returns whether the node has all that the other nodes have stored."""
        return http_status(f"http://127.0.0.1:{self.monitor_port}/healthz") == 200

    def stored(self, stream):
        """Returns the number of messages that this node has of a stream, or None."""
        url = f"http://127.0.0.1:{self.monitor_port}/jsz?accounts=true&streams=true"
        try:
            with urllib.request.urlopen(url, timeout=10) as response:
                accounts = json.load(response).get("account_details", [])
        except OSError:
            return None
        found = [each["state"]["messages"] for account in accounts
                 for each in account.get("stream_detail", []) if each["name"] == stream]
        return found[0] if found else None


class Gateway(Part):
    def __init__(self, name, folder, program, brokers):
        super().__init__(name, folder)
        self.program = program
        self.brokers = brokers
        self.port, self.admin_port = free_port(), free_port()

    def command(self):
        command = [self.program, "gateway", "--plain", "--port", str(self.port),
                   "--admin-port", str(self.admin_port), "--allow", f"{SITE}:{KEY}"]
        for broker in self.brokers:
            command += ["--nats", broker.url()]
        return command

    def is_ready(self):
        return http_status(f"http://127.0.0.1:{self.admin_port}/readyz") == 200

    def metrics(self):
        """Returns the values of the metrics by name and labels; empty if it does not respond."""
        try:
            url = f"http://127.0.0.1:{self.admin_port}/metrics"
            with urllib.request.urlopen(url, timeout=2) as response:
                lines = response.read().decode().splitlines()
        except OSError:
            return {}
        return {name: float(value) for name, _, value in
                (line.rpartition(" ") for line in lines if line and line[0] != "#")}


class Balancer(Part):
    """nginx with the shipped configuration: it ends TLS and speaks HTTP/2 with installations."""

    def __init__(self, name, folder, gateways):
        super().__init__(name, folder)
        self.gateways = gateways
        self.port = free_port()
        self.authority = os.path.join(folder, "certificate.pem")

    def configure(self):
        key = os.path.join(self.folder, "key.pem")
        subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt",
                        "ec_paramgen_curve:prime256v1", "-nodes", "-days", "2", "-keyout", key,
                        "-out", self.authority, "-subj", "/CN=fleet",
                        "-addext", "subjectAltName=IP:127.0.0.1"], check=True, capture_output=True)
        with open(SHIPPED_CONFIGURATION) as file:
            text = file.read()
        for shipped, used in self._replacements(key):
            if text.count(shipped) != 1:
                raise FleetError(f"{SHIPPED_CONFIGURATION}: not once: {shipped}")
            text = text.replace(shipped, used)
        with open(os.path.join(self.folder, "nginx.conf"), "w") as file:
            file.write(text)

    def _replacements(self, key):
        """Returns pairs of what the shipped configuration contains and the test uses."""
        user = "user root;" if os.geteuid() == 0 else ""
        paths = " ".join(f"{kind}_temp_path {self.folder}/nginx-{kind};" for kind in
                         ("client_body", "proxy", "fastcgi", "uwsgi", "scgi"))
        return [("user www-data;", f"{user} daemon off;"),
                ("http {", f"http {{ {paths}"),
                ("/run/nginx.pid", f"{self.folder}/nginx.pid"),
                ("/var/log/nginx/error.log", "stderr"),
                ("/var/log/nginx/access.log", f"{self.folder}/access.log"),
                ("listen 443", f"listen 127.0.0.1:{self.port}"),
                ("/etc/nginx/tls/server.pem", self.authority),
                ("/etc/nginx/tls/server.key", key),
                ("server 127.0.0.1:8081", f"server 127.0.0.1:{self.gateways[0].port}"),
                ("server 127.0.0.1:8082", f"server 127.0.0.1:{self.gateways[1].port}")]

    def command(self):
        return ["nginx", "-p", self.folder, "-e", "stderr", "-c",
                os.path.join(self.folder, "nginx.conf")]

    def kill(self):
        """Ends the process with SIGTERM, which ends its workers too. They survive SIGKILL."""
        was_running = self.is_running()
        if was_running:
            self.process.terminate()
            self.process.wait()
        return was_running

    def url(self):
        return f"https://127.0.0.1:{self.port}"


class Installation(Part):
    def __init__(self, number, folder, program, balancer, rate, seed):
        super().__init__(f"installation-{number}", folder)
        self.number = number
        self.life = 0
        self.program = program
        self.balancer = balancer
        self.rate = rate
        self.seed = seed
        self.ledger = os.path.join(folder, self.name + ".ledger")

    def command(self):
        return [self.program, "--state", os.path.join(self.folder, self.name + ".state"),
                "--host", self.balancer.url(), "--ca", self.balancer.authority,
                "--installation", str(self.number), "--life", str(self.life),
                "--rate", str(self.rate), "--seed", str(self.seed)]

    def start(self):
        self.life += 1
        with open(self.log(), "ab") as log, open(self.ledger, "ab") as ledger:
            self.process = subprocess.Popen(self.command(), stdin=subprocess.PIPE, stdout=ledger,
                                            stderr=log)

    def kill(self):
        was_running = super().kill()
        if self.process is not None:
            self.process.stdin.close()
        return was_running

    def finish(self):
        """Lets it send what is queued and exit."""
        self.process.stdin.close()
