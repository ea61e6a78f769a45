# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""A receiver for the measurements: nginx on loopback, HTTPS with HTTP/2, answering 204 at once."""

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
  log_format way '$connection $server_protocol $status $request_length';
  access_log {folder}/access.log way buffer=256k flush=1s;
  # A connection is not to end in the middle of a measurement.
  keepalive_requests 10000000;
  keepalive_timeout 600s;
  server {{
    listen 127.0.0.1:{port} ssl http2;
    ssl_certificate {folder}/certificate.pem;
    ssl_certificate_key {folder}/key.pem;
    # Nothing but a mirror reads a body without passing it on; an answer before its end would make
    # nginx break the stream off.
    location / {{
      mirror /mirrored;
      empty_gif;
      error_page 405 = @taken;
    }}
    location = /mirrored {{
      internal;
      return 204;
    }}
    location @taken {{ return 204; }}
  }}
}}
"""


def reserve_port():
    """A free port, held until the socket is closed; nobody listens there."""
    holder = socket.socket()
    holder.bind(("127.0.0.1", 0))
    return holder, holder.getsockname()[1]


class Receiver:
    """Runs while it is used as a context."""

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
        self._make_certificate()
        configuration = os.path.join(self.folder, "nginx.conf")
        with open(configuration, "w", encoding="ascii") as file:
            file.write(CONFIGURATION.format(folder=self.folder, port=self.port))
        self.holder.close()
        self.process = subprocess.Popen([program, "-p", self.folder, "-c", configuration],
                                        stderr=subprocess.PIPE, text=True)
        self._wait_until_it_answers()
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.communicate(timeout=10)

    def _make_certificate(self):
        subprocess.run(
            ["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
             "-nodes", "-days", "1", "-subj", "/CN=127.0.0.1",
             "-addext", "subjectAltName=IP:127.0.0.1",
             "-keyout", os.path.join(self.folder, "key.pem"), "-out", self.ca],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def _wait_until_it_answers(self):
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
                    raise RuntimeError("nginx does not answer") from error
                time.sleep(0.02)

    def forget(self):
        """What was logged up to now does not count."""
        self.requests()
        os.truncate(self.log, 0)

    def requests(self):
        """(connection, protocol, status) of each request since the last `forget`."""
        time.sleep(1.2)  # until nginx has written its buffer
        with open(self.log, encoding="ascii") as file:
            return [tuple(line.split()[:3]) for line in file]


Way = collections.namedtuple("Way", "requests connections protocols statuses")


def way(requests):
    """How requests came."""
    return Way(len(requests), len({each[0] for each in requests}),
               sorted({each[1] for each in requests}), sorted({each[2] for each in requests}))
