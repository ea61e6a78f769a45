#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Runs the commands of docs/collector.md against a new collector and compares their output.

    run_collector_page.py PROGRAM PAGE

Each "sh" block runs in one shell and must exit with status 0. The block after it is the expected
output. "json": a sequence of values, each containing at least the content that the page shows
(times and sizes may differ, lists may be longer). "text": the exact lines, where "..." matches
anything. The first "sh" block sets EVENTS, WEB and CA; the script replaces them with the values of
the new collector.
"""
import json
import os
import re
import subprocess
import sys
import tempfile

DIFFERS = re.compile(r"^(bytes|.*_ms)$")
BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
VARIABLES = ["EVENTS", "WEB", "CA"]
TIMEOUT_S = 60


class Failure(Exception):
    """The output of the collector differs from the page."""


def start(program, folder):
    ports = os.path.join(folder, "ports.json")
    process = subprocess.Popen(
        [program, "collector", "--state", os.path.join(folder, "state"), "--port", "0",
         "--web-port", "0", "--ports-file", ports], stdout=subprocess.PIPE, text=True)
    for line in process.stdout:
        if "Ctrl-C" in line:
            break
    if not os.path.exists(ports):
        process.kill()
        raise Failure("the collector did not start")
    with open(ports, encoding="utf-8") as file:
        return process, json.load(file)


def compare(shown, printed, path):
    """Raises Failure unless `printed` contains everything in `shown`."""
    if type(shown) is not type(printed):
        raise Failure(f"{path}: the page shows {shown!r}; the command printed {printed!r}")
    if isinstance(shown, dict):
        for key, value in shown.items():
            if key not in printed:
                raise Failure(f"{path}.{key} is missing")
            if not DIFFERS.match(key):
                compare(value, printed[key], f"{path}.{key}")
            elif type(value) is not type(printed[key]):
                raise Failure(f"{path}.{key} is {printed[key]!r}")
    elif isinstance(shown, list):
        if len(printed) < len(shown) or (not shown and printed):
            raise Failure(f"{path}: the page shows {len(shown)} entries; "
                          f"the command printed {len(printed)}")
        for index, value in enumerate(shown):
            compare(value, printed[index], f"{path}[{index}]")
    elif shown != printed:
        raise Failure(f"{path}: the page shows {shown!r}; the command printed {printed!r}")


def values(text):
    decoder = json.JSONDecoder()
    found = []
    text = text.strip()
    while text:
        value, end = decoder.raw_decode(text)
        found.append(value)
        text = text[end:].strip()
    return found


def check_text(shown, printed):
    pattern = ".*".join(re.escape(part) for part in shown.rstrip("\n").split("..."))
    if not re.fullmatch(pattern, printed.rstrip("\n")):
        raise Failure(f"the page shows\n{shown}the command printed\n{printed}")


def check_json(shown, printed):
    wanted, given = values(shown), values(printed)
    if len(wanted) != len(given):
        raise Failure(f"the page shows {len(wanted)} values; the command printed {len(given)}")
    for index, value in enumerate(wanted):
        compare(value, given[index], f"value {index + 1}")


def run(command, environment, folder):
    result = subprocess.run(["bash", "-e", "-u", "-c", command], cwd=folder, env=environment,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                            timeout=TIMEOUT_S, check=False)
    if result.returncode != 0:
        raise Failure(f"status {result.returncode}\n{result.stdout}{result.stderr}")
    return result.stdout


def run_page(blocks, environment, folder):
    """Returns the number of command blocks that ran and of output blocks that were compared."""
    commands = outputs = 0
    printed = None
    for number, (kind, content) in enumerate(blocks):
        try:
            if kind == "sh":
                commands += 1
                printed = run(content, environment, folder)
            elif printed is not None:
                (check_json if kind == "json" else check_text)(content, printed)
                outputs += 1
                printed = None
        except Failure as failure:
            raise Failure(f"block {number + 2}:\n{content}{failure}") from failure
    return commands, outputs


def main(program, page):
    with open(page, encoding="utf-8") as file:
        blocks = BLOCK.findall(file.read())
    first = next(index for index, (kind, _) in enumerate(blocks) if kind == "sh")
    names = [line.split("=")[0] for line in blocks[first][1].splitlines()]
    if names != VARIABLES:
        raise Failure(f"the first command block sets {names}, not {VARIABLES}")
    with tempfile.TemporaryDirectory() as folder:
        process, ports = start(program, folder)
        try:
            environment = dict(os.environ, CA=ports["ca"], no_proxy="localhost",
                               EVENTS=f"https://localhost:{ports['events_port']}/events",
                               WEB=f"http://localhost:{ports['web_port']}")
            commands, outputs = run_page(blocks[first + 1:], environment, folder)
        finally:
            process.terminate()
            process.wait(TIMEOUT_S)
    if commands != outputs or commands < 10:
        raise Failure(f"{commands} command blocks and {outputs} output blocks must match")
    print(f"{commands} command blocks printed the output that the page shows")


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Failure as failure:
        print(f"docs/collector.md: {failure}", file=sys.stderr)
        sys.exit(1)
