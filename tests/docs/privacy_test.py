#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Compares the tables of docs/privacy.md with what is on the disk after the lives of installations.

privacy_test.py ROOT JX_PROGRAM LAUNCH_PROGRAM

Each launch is a process. One installation is started enabled and waiting for consent, executes
every event class with every field, gets rejections, is purged while it runs, and finds damaged
files. Three more are started only disabled, only waiting for consent, and on a platform with user
defaults, as tvOS has.

Every file, every persisted key and every key in a stored body must have a row. Every row must have
been seen, except the files of the section "Temporary files".
"""

import http.server
import json
import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import threading
import tomllib

UNREACHABLE = "https://127.0.0.1:9"
JOURNAL, MAGIC = b"JXJRNL1\n", b"\xf7JX\xf8"
CODE = re.compile(r"`([^`]+)`")
# Keys that this test adds as an application.
OF_THE_APPLICATION = re.compile(r"^(user\.|items\[\]\.|items\[\]\.product\.)?app_")
# The parts of file names that differ between files of one kind.
FILE_PATTERNS = ((r"segment-[0-9a-f]{16}", "segment-<number>"),
                 (r"damaged-\d+", "damaged-<offset>"),
                 (r"stopped-[0-9a-f]{8}", "stopped-<source>"))

problems = []


def expect(condition, problem):
    if not condition:
        problems.append(problem)


class Page:
    """The rows of a page, by section."""

    def __init__(self, text):
        self.sections = {}
        for part in re.split(r"^#{2,3} ", text, flags=re.MULTILINE)[1:]:
            title, _, body = part.partition("\n")
            self.sections[title] = body

    def rows(self, title):
        """Returns {name: cells after the first}; a row may have several names."""
        found = {}
        for line in self.sections.get(title, "").splitlines():
            if not line.startswith("| `"):
                continue
            cells = [cell.strip() for cell in line.strip("|").split(" | ")]
            for name in CODE.findall(cells[0]):
                expect(name not in found, f"{title}: {name} has two rows")
                found[name] = cells[1:]
        expect(found, f"docs/privacy.md: the section {title!r} has no rows")
        return found


def keys_of(value, path=""):
    """Yields (path, value) for the values in a body that are not objects."""
    if isinstance(value, dict) and value:
        for key, inner in value.items():
            name = re.sub(r"^(category|keywords)_\d+$", r"\1_<n>", key)
            yield from keys_of(inner, f"{path}.{name}" if path else name)
    elif isinstance(value, list) and any(isinstance(inner, dict) for inner in value):
        for inner in value:
            yield from keys_of(inner, path + "[]")
    else:
        yield path, value


def kind_of_example(cell):
    """Returns the type of the value that a cell shows: strings and lists are code."""
    if not cell.startswith("`"):
        return bool if cell in ("true", "false") else (int, float)
    return list if cell.startswith("`[") else str


def payloads_in(path):
    """Yields the payloads of the frames of a file."""
    content, at = path.read_bytes(), 0
    while (at := content.find(MAGIC, at)) >= 0:
        length, _ = struct.unpack_from("<II", content, at + 4)
        yield content[at + 12:at + 12 + length]
        at += 12 + length


def defaults_in(path):
    """Returns the keys of a defaults file, also of values that were replaced."""
    keys = set()
    for payload in payloads_in(path):
        if payload[:1] == b"C":  # a checkpoint
            continue
        key_length, = struct.unpack_from("<I", payload, 1)
        keys.add(payload[5:5 + key_length].decode())
    expect(path.read_bytes().startswith(JOURNAL) and keys, f"{path}: not a journal with entries")
    return keys


def changes_in(path):
    """Returns the keys of the persisted values that a segment contains."""
    keys = set()
    for payload in payloads_in(path):
        at = 20 if payload[:1] == b"V" else len(payload)
        while at < len(payload):
            key_length, value_length = struct.unpack_from("<II", payload, at + 1)
            keys.add(payload[at + 9:at + 9 + key_length].decode())
            at += 9 + key_length + value_length
    return keys


class Rejecting(http.server.BaseHTTPRequestHandler):
    """A server that rejects every request permanently."""

    def do_POST(self):  # pylint: disable=invalid-name
        self.rfile.read(int(self.headers["Content-Length"]))
        self.send_response(400)
        self.send_header("Content-Length", "0")
        self.end_headers()

    def log_message(self, format, *args):  # pylint: disable=redefined-builtin
        pass


class Installation:
    """A state folder, and everything that was seen in it."""

    def __init__(self, folder, program, launch_program):
        self.folder = pathlib.Path(folder)
        self.program, self.launch_program = program, launch_program
        self.files, self.defaults = set(), set()
        self.values = {}  # {key of a body: values}

    def launch(self, state):
        subprocess.run([self.launch_program, self.folder, state], check=True, timeout=60,
                       stderr=subprocess.DEVNULL)
        self.look()

    def replay(self, lines, to=UNREACHABLE, wait="0"):
        """The exit status is 3 if events were left undelivered or rejected."""
        done = subprocess.run(
            [self.program, "replay", "--to", to, "--state", self.folder, "--wait", wait,
             "--log-level", "0", "--version-name", "2.0"], input="\n".join(lines), text=True,
            capture_output=True, timeout=60, check=False)
        expect(done.returncode in (0, 3), f"jx replay: {done.returncode}: {done.stderr}")
        self.look()

    def queue(self, *arguments):
        return subprocess.run([self.program, "queue", *arguments, "--state", self.folder],
                              capture_output=True, text=True, timeout=60, check=True).stdout

    def look(self):
        """Records the files, the persisted keys, and the keys of the stored bodies."""
        for folder, _, names in os.walk(self.folder):
            for name in names:
                path = os.path.relpath(os.path.join(folder, name), self.folder)
                for pattern, kind in FILE_PATTERNS:
                    path = re.sub(pattern, kind, path)
                self.files.add(path)
        self.defaults |= defaults_in(self.folder / "defaults")
        for segment in self.folder.glob("outbox/segment-????????????????"):
            self.defaults |= changes_in(segment)
        for verb in ("list", "dead"):
            if (self.folder / "outbox").exists():
                for line in self.queue(verb, "--json").splitlines():
                    request = json.loads(line)
                    shape = ["created", "status", "url", "body"]
                    if verb == "list":
                        shape.remove("status")
                    expect(list(request) == shape, f"jx queue {verb} --json: {list(request)}")
                    for key, value in keys_of(request["body"]):
                        self.values.setdefault(key, []).append(value)

    def keys(self):
        """Returns the keys of the stored bodies, without those that the application added."""
        return {key for key in self.values if not OF_THE_APPLICATION.match(key)}


def example_of(field):
    """Returns a value for a field of the catalogue."""
    product = {"ID": "1", "name": "n", "price": "1.50", "currency": "EUR", "categories": ["a", "b"],
               "brand": "b", "colors": ["red"], "size": "s", "parameters": {"app_product": 1}}
    item = {"ID": "1", "product": product, "variant": "v", "list_position": 1, "discount": "0.5",
            "quantity": 2, "coupon": "c", "affiliation": "a", "parameters": {"app_item": 1}}
    return {"string": "text", "number": 1, "boolean": True, "values": ["a"], "strings": ["a"],
            "numbered_strings": ["a", "b"], "items": [item]}[field["type"]]


def every_event(root):
    """Returns a line of a session script for each event class, with all of its fields."""
    catalogue = {}
    for name in ("base", "ecommerce", "engagement", "video"):
        text = (root / f"jx/catalogue/{name}.toml").read_text(encoding="utf-8")
        catalogue |= tomllib.loads(text)
    lines = []
    for name, entry in catalogue.items():
        if not name.startswith("JX") or entry.get("kind") == "object":
            continue
        fields, ancestor = {}, name
        while ancestor:
            for field, properties in catalogue[ancestor].get("fields", {}).items():
                if properties["type"] == "enumeration":
                    values = catalogue["enumerations"][properties["enumeration"]]["values"]
                    fields[field] = next(iter(values))
                elif ancestor != "JXEvent" or field != "name":
                    fields[field] = example_of(properties)
            ancestor = catalogue[ancestor].get("base")
        line = {"do": "event", "class": name, "fields": fields, "parameters": {"app_event": 1}}
        if "modes" in entry:
            line["mode"] = next(iter(catalogue["enumerations"][entry["modes"]]["values"]))
            line["session"] = fields.pop("videoSessionID")
        if name == "JXCustomEvent":
            line["name"] = "custom"
        lines.append(json.dumps(line))
    return lines


def reject_some(installation):
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Rejecting)
    thread = threading.Thread(target=server.serve_forever)
    thread.start()
    try:
        installation.replay(['{"do":"event","class":"JXPageViewEvent"}'],
                            f"http://127.0.0.1:{server.server_port}", wait="20")
    finally:
        server.shutdown()
        thread.join()
        server.server_close()
    expect((installation.folder / "outbox/dead").exists(), "no event was rejected")


def purge_while_it_runs(installation):
    """The mark for the running process is on the disk until that process reads it."""
    with subprocess.Popen(
            [installation.program, "replay", "--to", UNREACHABLE, "--state", installation.folder,
             "--log-level", "0"], stdin=subprocess.PIPE, stderr=subprocess.PIPE,
            stdout=subprocess.DEVNULL, text=True) as running:
        running.stdin.write('{"do":"event","class":"JXPageViewEvent"}\nx\n')
        running.stdin.flush()
        running.stderr.readline()  # reports the second line, so the event is stored
        running.send_signal(signal.SIGSTOP)
        installation.queue("purge")
        installation.look()
        running.kill()


def damage(path):
    """Changes the last byte of a file, which belongs to a value or a body."""
    content = bytearray(path.read_bytes())
    content[-1] ^= 0xff
    path.write_bytes(content)


def live(root, installation):
    installation.launch("enabled")
    installation.launch("waiting")
    installation.replay(every_event(root) + ['{"do":"background"}', '{"do":"foreground"}'])
    purge_while_it_runs(installation)
    # Before other events are queued, because an unreachable server delays all of them.
    reject_some(installation)
    installation.launch("enabled")
    damage(next(installation.folder.glob("outbox/segment-*")))
    damage(installation.folder / "outbox/dead")
    damage(installation.folder / "defaults")
    installation.launch("disabled")


def compare(title, seen, rows):
    for name in sorted(seen - rows.keys()):
        problems.append(f"docs/privacy.md: {title}: {name} is stored, but has no row")
    for name in sorted(rows.keys() - seen):
        problems.append(f"docs/privacy.md: {title}: {name} has a row, but was not stored")


def compare_consent(page, folder, programs):
    """Compares the columns that depend on the consent state."""
    disabled = Installation(folder / "disabled", *programs)
    disabled.launch("disabled")
    stored = {key for key, cells in page.rows("Persisted values").items()
              if cells[-1] in ("start", "background")}
    compare("Persisted values of a disabled process", disabled.defaults,
            dict.fromkeys(stored))
    expect(not disabled.values, "an event was stored while disabled")
    waiting = Installation(folder / "waiting", *programs)
    waiting.launch("waiting")
    compare("Context and user while waiting for consent",
            waiting.keys() - {"event_name"},
            {key: cells for key, cells in page.rows("Context and user").items()
             if cells[2] == "yes"})


def compare_user_defaults(page, folder, launch_program):
    """Compares the values and files of a platform that stores the persisted values itself."""
    printed = subprocess.run([launch_program, folder / "apple", "enabled", "user-defaults"],
                             check=True, timeout=60, stdout=subprocess.PIPE, text=True,
                             stderr=subprocess.DEVNULL).stdout
    # A value of an update is stored by a later start.
    compare("Persisted values in user defaults", set(printed.split()),
            {key: cells for key, cells in page.rows("Persisted values").items()
             if cells[-1] != "update"})
    names = {os.path.relpath(path, folder / "apple")
             for path in (folder / "apple").rglob("*") if path.is_file()}
    absent = {name for name, cells in page.rows("Files").items() if cells[-1].startswith("no")}
    expect("defaults" in absent, "docs/privacy.md: Files: tvOS has no file defaults")
    expect(names and not names & absent, f"unexpected files with user defaults: {names}")


def compare_example(page, installation):
    """Compares the example of a subject-access request with what the command prints."""
    text = page.sections["Subject-access requests"]
    example = json.loads(re.search(r"^```text\n(.*)\n```$", text, re.MULTILINE).group(1))
    expect(list(example) == ["created", "url", "body"], f"example: {list(example)}")
    keys = dict(keys_of(example["body"])).keys()
    for key in keys - installation.keys():
        problems.append(f"docs/privacy.md: the example contains {key}, which was not stored")
    for key in {"context.device.sdk_id", "user.anonymous_id"} - keys:
        problems.append(f"docs/privacy.md: the example does not contain {key}")


def compare_erased(page, installation):
    """After an erasure, no row is true for the folder."""
    installation.queue("purge", "--all")
    left = {str(path.relative_to(installation.folder))
            for path in installation.folder.rglob("*") if path.is_file()}
    expect((installation.folder / "outbox/lock").read_bytes() == b"", "outbox/lock is not empty")
    expect(left <= page.rows("Temporary files").keys() & {"erased", "outbox/lock"},
           f"files left by an erasure: {left}")


def main():
    root = pathlib.Path(sys.argv[1])
    programs = sys.argv[2:4]
    page = Page((root / "docs/privacy.md").read_text(encoding="utf-8"))
    folder = pathlib.Path(tempfile.mkdtemp(prefix="jx-privacy-"))
    try:
        installation = Installation(folder / "state", *programs)
        live(root, installation)
        data = page.rows("Context and user") | page.rows("Fields of events")
        compare("Data in events", installation.keys(), data)
        for key, cells in data.items():
            kind = kind_of_example(cells[0])
            # Some fields are lists in one event class and strings in another.
            expect(any(isinstance(value, kind) for value in installation.values.get(key, [])),
                   f"docs/privacy.md: {key}: the example {cells[0]} has another type")
        compare("Persisted values", installation.defaults, page.rows("Persisted values"))
        temporary = page.rows("Temporary files")
        files = {path for path in installation.files
                 if not any(re.fullmatch(re.escape(name).replace("<process>", r"\d+"), path)
                            for name in temporary)}
        compare("Files", files, page.rows("Files"))
        compare_consent(page, folder, programs)
        compare_user_defaults(page, folder, programs[1])
        compare_example(page, installation)
        compare_erased(page, installation)
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    for problem in problems:
        print(problem)
    sys.exit(1 if problems else 0)


if __name__ == "__main__":
    main()
