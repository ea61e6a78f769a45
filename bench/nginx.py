# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The server of the benchmarks: nginx on loopback, HTTPS with HTTP/2, always responding with 204."""

import collections
import os
import shutil
import socket
import ssl
import subprocess
import time

CONFIGURATION = """
daemon off;
master_process off;
pid {folder}/nginx.pid;
error_log {folder}/error.log warn;
events {{ worker_connections 256; }}
http {{
  client_body_temp_path {folder}/body;
  proxy_temp_path {folder}/proxy;
  fastcgi_temp_path {folder}/fastcgi;
  uwsgi_temp_path {folder}/uwsgi;
  scgi_temp_path {folder}/scgi;
  log_format bench '$connection $server_protocol $status $request_length $arg_count';
  access_log {folder}/access.log bench buffer=256k flush=200ms;
  # Connections must not end during a measurement.
  keepalive_requests 10000000;
  keepalive_timeout 600s;
  # Larger bodies would be written to files.
  client_body_buffer_size 1m;
  server {{
    listen 127.0.0.1:{port} ssl http2;
    ssl_certificate {folder}/certificate.pem;
    ssl_certificate_key {folder}/key.pem;
    # Only a mirror reads a body without forwarding it. nginx aborts a stream if it responds before
    # the end of the body.
    location / {{
      mirror /mirrored;
      empty_gif;
      error_page 405 = @accepted;
    }}
    location = /mirrored {{
      internal;
      return 204;
    }}
    location @accepted {{ return 204; }}
  }}
}}
"""


def reserve_port():
    """Returns a socket that reserves a free port without listening, and the port."""
    holder = socket.socket()
    holder.bind(("127.0.0.1", 0))
    return holder, holder.getsockname()[1]


class Server:
    """Runs nginx while it is used as a context manager."""

    def __init__(self, folder, holder=None, port=0):
        self.folder = os.path.join(folder, "nginx")
        os.makedirs(self.folder)
        self.holder, self.port = (holder, port) if holder else reserve_port()
        self.ca = os.path.join(self.folder, "certificate.pem")
        self.log = os.path.join(self.folder, "access.log")
        self.process = None

    @property
    def host(self):
        return f"https://127.0.0.1:{self.port}"

    def __enter__(self):
        program = shutil.which("nginx", path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin")
        if program is None or shutil.which("openssl") is None:
            raise RuntimeError("nginx or openssl is not installed (scripts/packages bench)")
        self._create_certificate()
        configuration = os.path.join(self.folder, "nginx.conf")
        with open(configuration, "w", encoding="ascii") as file:
            file.write(CONFIGURATION.format(folder=self.folder, port=self.port))
        self.holder.close()
        self.process = subprocess.Popen([program, "-p", self.folder, "-c", configuration],
                                        stderr=subprocess.PIPE, text=True)
        self._wait_until_ready()
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.communicate(timeout=10)

    def _create_certificate(self):
        subprocess.run(
            ["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
             "-nodes", "-days", "1", "-subj", "/CN=127.0.0.1",
             "-addext", "subjectAltName=IP:127.0.0.1",
             "-keyout", os.path.join(self.folder, "key.pem"), "-out", self.ca],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def _wait_until_ready(self):
        context = ssl.create_default_context(cafile=self.ca)
        deadline = time.monotonic() + 10
        while True:
            try:
                with socket.create_connection(("127.0.0.1", self.port), 1) as plain, \
                        context.wrap_socket(plain, server_hostname="127.0.0.1"):
                    return
            except OSError as error:
                if self.process.poll() is not None:
                    raise RuntimeError(f"nginx: {self.process.stderr.read()}") from error
                if time.monotonic() > deadline:
                    raise RuntimeError("nginx does not respond") from error
                time.sleep(0.02)

    def clear_log(self):
        """Discards the requests logged so far."""
        self.requests()
        os.truncate(self.log, 0)

    def _logged(self):
        time.sleep(0.5)  # until nginx has written its buffer
        with open(self.log, encoding="ascii") as file:
            return [line.split() for line in file]

    def requests(self):
        """Returns (connection, protocol, status) of each request since the last `clear_log`."""
        return [tuple(words[:3]) for words in self._logged()]

    def events(self):
        """Returns the number of events accepted since the last `clear_log`. The parameter "count"
        of a request is its number of events, 1 without it."""
        return sum(1 if words[4] == "-" else int(words[4]) for words in self._logged()
                   if words[2] == "204")


Summary = collections.namedtuple("Summary", "requests connections protocols statuses")


def summary(requests):
    """Returns the number of requests and of connections, the protocols and the statuses."""
    return Summary(len(requests), len({each[0] for each in requests}),
                   sorted({each[1] for each in requests}), sorted({each[2] for each in requests}))
