#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Runs nginx with deploy/nginx.conf in front of two gateways and a cluster.

nginx_test.py JX     the path of the program jx
"""

import json
import re
import shutil
import signal
import subprocess
import sys
import time
import unittest

import programs

JX = sys.argv.pop(1)
MEBIBYTE = 1024 * 1024
SOURCE = "?jx_s=1&token=source-key"


def event(event_id):
    return json.dumps({"event_name": "play", "context": {"event_id": event_id}}).encode()


class Nginx(unittest.TestCase):
    def setUp(self):
        self.deployment = programs.Deployment(self)
        self.deployment.start_brokers()
        self.assertEqual(0, self.deployment.set_up(JX).returncode)
        self.gateways = [self.deployment.start_gateway(JX, "--access-log", "all")
                         for _ in range(2)]
        for gateway in self.gateways:
            gateway.wait_until_ready()
        self.stored = self.deployment.stored()
        self.start_nginx()

    def start_nginx(self):
        self.folder = self.deployment.folder / "nginx"
        self.folder.mkdir()
        port = self.deployment.port()
        addresses = [gateway.url.split("/")[2] for gateway in self.gateways]
        self.temporary = "".join(f"{use}_temp_path {self.folder}/{use};\n" for use in (
            "client_body", "proxy", "fastcgi", "uwsgi", "scgi"))
        text = programs.replaced(programs.text_of("nginx.conf"), {
            "http {\n": "http {\n" + self.temporary,
            "listen 443": f"listen 127.0.0.1:{port}",
            "127.0.0.1:8081": addresses[0], "127.0.0.1:8082": addresses[1],
            "/etc/nginx/tls": str(self.deployment.folder / "tls"),
            "/run/nginx.pid": f"{self.folder}/nginx.pid",
            "/var/log/nginx": str(self.folder),
            "worker_processes auto": "worker_processes 1",
            "buffer=64k flush=5s": "",  # writes each line at once
            "proxy_read_timeout 10s": "proxy_read_timeout 6s"})
        path = self.folder / "nginx.conf"
        path.write_text(text, encoding="utf-8")
        self.host = f"https://localhost:{port}"
        self.nginx = programs.Running(self, [programs.program("nginx"), "-p", self.folder, "-e",
                                             "stderr", "-c", path, "-g",
                                             "daemon off; master_process off;"])
        deadline = time.monotonic() + programs.TIMEOUT_S
        while self.get("/healthz") != 200:
            self.assertLess(time.monotonic(), deadline, self.nginx.output)

    def get(self, path):
        """Returns the status, or 0 without a response."""
        result = subprocess.run(
            [programs.program("curl"), "--silent", "--cacert", self.deployment.authority,
             "--output", "/dev/null", "--write-out", "%{http_code}", self.host + path],
            capture_output=True, text=True, check=False)
        return int(result.stdout)

    def post(self, body, *options, path="/events" + SOURCE):
        """Returns one response per URL."""
        return programs.post(self.host + path, body, "--cacert", self.deployment.authority,
                             *options)

    def statuses(self, count):
        self.sent = getattr(self, "sent", 0)
        found = []
        for _ in range(count):
            self.sent += 1
            found += [response["status"] for response in self.post(event(f"e-{self.sent}"))]
        return found

    def test_passes_events_over_http_2_and_keeps_connections(self):
        for option, protocol in (("--http2", "2"), ("--http1.1", "1.1")):
            first, second = self.post(event("h-" + protocol), option,
                                      self.host + "/events" + SOURCE)
            self.assertEqual((204, protocol, 1),
                             (first["status"], first["protocol"], first["connects"]))
            # On the same connection; the broker drops the repeat.
            self.assertEqual((204, protocol, 0),
                             (second["status"], second["protocol"], second["connects"]))
        self.assertEqual(self.stored + 2, self.deployment.stored())

    def test_limits_bodies_and_keeps_them_in_memory(self):
        shutil.rmtree(self.folder / "client_body")  # a temporary file would fail
        for option in ("--http2", "--http1.1"):
            largest = event("m" + option).ljust(MEBIBYTE)
            self.assertEqual(204, self.post(largest, option)[0]["status"])
            larger = self.post(largest + b" ", option)[0]
            self.assertEqual(413, larger["status"])
            self.assertRegex(larger["headers"]["x-request-id"], r"\A[0-9a-f]{32}\Z")
        self.assertEqual(self.stored + 2, self.deployment.stored())

    def test_uses_the_other_gateway_and_refuses_without_any(self):
        self.assertEqual([204] * 4, self.statuses(4))
        self.assertEqual(200, self.get("/readyz"))
        self.gateways[0].kill()
        self.assertEqual([204] * 4, self.statuses(4))
        self.assertEqual(200, self.get("/readyz"))
        self.gateways[1].kill()
        # The first request finds out that the gateway is gone.
        for _ in range(2):
            response = self.post(event("refused"))[0]
            self.assertEqual((503, "5"), (response["status"], response["headers"]["retry-after"]))
            self.assertRegex(response["headers"]["x-request-id"], r"\A[0-9a-f]{32}\Z")
        self.assertEqual(503, self.get("/readyz"))
        self.assertEqual(200, self.get("/healthz"))
        self.assertEqual(self.stored + 8, self.deployment.stored())

    def test_sends_an_event_to_the_other_gateway_after_a_timeout(self):
        self.gateways[0].process.send_signal(signal.SIGSTOP)
        # In turn, so that at least one of two reaches the stopped gateway.
        self.assertEqual([204] * 2, self.statuses(2))
        self.log('"gateway_status":"504, 204"')
        self.gateways[0].process.send_signal(signal.SIGCONT)
        self.gateways[0].wait_until_ready()  # it has read the requests
        self.assertEqual(self.stored + 2, self.deployment.stored())

    def log(self, expected):
        """Returns the log when it contains the text: nginx writes a line after the response."""
        deadline = time.monotonic() + programs.TIMEOUT_S
        while expected not in (text := (self.folder / "access.log").read_text(encoding="utf-8")):
            self.assertLess(time.monotonic(), deadline, text)
            time.sleep(0.01)
        return text

    def test_serves_nothing_but_events_and_health(self):
        for path in ("/metrics", "/", "/events/", "/healthz/"):
            self.assertEqual(404, self.get(path), path)
        self.assertEqual(405, self.get("/events"))

    def test_passes_its_request_id_and_logs_no_personal_data(self):
        response = self.post(event("logged"))[0]
        log = self.log("\n")
        self.assertEqual(1, len(log.splitlines()))
        line = json.loads(log)
        self.assertEqual(response["headers"]["x-request-id"], line["request_id"])
        self.assertEqual(("/events", 204, "POST", "204"), (
            line["path"], line["status"], line["method"], line["gateway_status"]))
        addresses = [gateway.url.split("/")[2] for gateway in self.gateways]
        self.gateways[addresses.index(line["gateway"])].wait_for(
            f'"event":"request".*"request_id":"{line["request_id"]}"')
        self.assertNotIn("source-key", log)
        self.assertNotIn("127.0.0.1", re.sub(r'"gateway":"[^"]*"', "", log))


if __name__ == "__main__":
    unittest.main()
