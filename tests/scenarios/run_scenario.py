#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Runs a scenario: the launches of one installation, each in a new process, on one state folder.

A scenario file is read line by line; "#!" starts a comment. Unindented lines are headings:

    launch at MS [version STRING]   starts a process at this time, in ms since the Unix epoch
    lose defaults                   deletes the persisted values between launches

Lines indented by two are the steps of the launch (see ScenarioLaunch.cpp), in order. Lines indented
by four are the expectations after the step above them:

    NAME = STRING     the variable, or after "persisted" the persisted string, equals STRING
    NAME = (not set)  there is no value
    NAME = (empty)    it is the empty string
    NAME = (uuid X)   it is a UUID: the same for each X, different for other letters

A scenario without expectations fails.
"""
import json
import re
import shutil
import subprocess
import sys
import tempfile

UUID = re.compile(r"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}")
SHORT = re.compile(r"^[A-Z][A-Z_]*$")


class Failure(Exception):
    """An expectation of the scenario is not met, or the scenario is invalid."""


def parse(path):
    """Returns the launches: (line number, words of the heading, steps); a step has expectations."""
    launches = []
    with open(path, encoding="utf-8") as file:
        for number, raw in enumerate(file, 1):
            line = raw.split("#!")[0].rstrip()
            if not line:
                continue
            indent = len(line) - len(line.lstrip(" "))
            text = line.strip()
            if indent == 0:
                launches.append((number, text.split(), []))
            elif indent == 2:
                launches[-1][2].append((number, text, []))
            else:
                name, value = text.split(" = ", 1)
                launches[-1][2][-1][2].append((number, name, value))
    return launches


class Scenario:
    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.uuids = {}
        self.checks = 0

    def run(self, launches):
        for number, heading, steps in launches:
            if heading == ["lose", "defaults"]:
                shutil.rmtree(self.folder)
            elif heading[:2] == ["launch", "at"]:
                self.launch(number, heading, steps)
            else:
                raise Failure(f"line {number}: unknown heading: {' '.join(heading)}")
        if self.checks == 0:
            raise Failure("the scenario contains no expectations")

    def launch(self, number, heading, steps):
        version = heading[4] if heading[3:4] == ["version"] else "-"
        script = "".join(step + "\n" for _, step, _ in steps)
        done = subprocess.run([self.program, self.folder, heading[2], version], input=script,
                              capture_output=True, text=True, timeout=60, check=False)
        killed = any(step.startswith("kill_in_event") for _, step, _ in steps)
        if done.returncode != (-9 if killed else 0):
            raise Failure(f"line {number}: the launch exited with {done.returncode}: {done.stderr}")
        outputs = iter(done.stdout.splitlines())
        for line, step, expectations in steps:
            if step.split()[0] in ("event", "persisted"):
                self.compare(json.loads(next(outputs)), expectations)
            elif expectations:
                raise Failure(f"line {line}: '{step}' has no output to compare")

    def compare(self, found, expectations):
        for line, name, expected in expectations:
            self.checks += 1
            key = f"#JX_{name}#" if SHORT.match(name) else name
            problem = self.problem(found.get(key), expected)
            if problem:
                raise Failure(f"line {line}: {key} is {found.get(key)!r}, {problem}")

    def problem(self, value, expected):
        if expected == "(not set)":
            return "" if value is None else "expected no value"
        if expected == "(empty)":
            return "" if value == "" else "expected the empty string"
        if expected.startswith("(uuid "):
            return self.uuid_problem(value, expected)
        return "" if value == expected else f"expected {expected!r}"

    def uuid_problem(self, value, letter):
        if value is None or not UUID.fullmatch(value):
            return "expected a UUID"
        if self.uuids.setdefault(letter, value) != value:
            return f"expected the same as before, {self.uuids[letter]}"
        if any(other == value for name, other in self.uuids.items() if name != letter):
            return "expected a different UUID"
        return ""


def main():
    program, path = sys.argv[1:3]
    folder = tempfile.mkdtemp(prefix="jx-scenario-")
    try:
        scenario = Scenario(program, folder + "/state")
        scenario.run(parse(path))
        print(f"{scenario.checks} expectations met")
        return 0
    except Failure as failure:
        print(f"{path}: {failure}")
        return 1
    finally:
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
