#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Compares deploy/gateway.toml and the systemd units with the program jx.

gateway_test.py JX     the path of the program jx
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import programs

JX = sys.argv.pop(1)
KEY = re.compile(r"^(# )?([a-z-]+) = (.*)$", re.MULTILINE)
# "--port INT:INT in [0 - 65535]=8443", at the end of a line or followed by the description.
OPTION = re.compile(r"^ +--([\w-]+)(?: [A-Z][^\s=]*(?: in \[[^]]*\])?(?:=(\S+))?)?(?: |$)",
                    re.MULTILINE)
NOT_IN_A_FILE = {"config", "check"}
DEPENDS_ON_THE_MACHINE = {"threads"}
UNITS = ("jx-gateway.service", "jx-gateway-drain.service")
EXPOSURE = "15"  # of 100; a unit without any protection has 96


def options():
    """Returns {option of jx gateway: default, or None}."""
    text = subprocess.run([JX, "gateway", "--help"], capture_output=True, text=True,
                          check=True).stdout
    found = dict(OPTION.findall(text[:text.index("Subcommands:")]))
    return {name: found[name] or None for name in found.keys() - NOT_IN_A_FILE}


class Configuration(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.text = programs.text_of("gateway.toml")

    def test_lists_every_option_with_its_default(self):
        keys = KEY.findall(self.text)
        self.assertEqual(sorted(options()), sorted(name for _, name, _ in keys))
        defaults = {name: default for name, default in options().items() if default}
        self.assertGreater(len(defaults), 13)
        for commented, name, value in keys:
            if name in defaults:
                self.assertTrue(commented, name)
            if name in defaults.keys() - DEPENDS_ON_THE_MACHINE:
                self.assertEqual(defaults[name], value.strip('"'), name)

    def check(self, text):
        """Returns the result of --check of a file with the certificates of a trial."""
        subprocess.run([programs.DEPLOY / "certificates", self.folder], check=True)
        path = self.folder / "gateway.toml"
        path.write_text(programs.replaced(text, {
            "/etc/jx-gateway/cert.pem": f"{self.folder}/server.pem",
            "/etc/jx-gateway/key.pem": f"{self.folder}/server.key"}), encoding="utf-8")
        return subprocess.run([JX, "gateway", "--config", path, "--check"], capture_output=True,
                              text=True, check=False)

    def test_is_accepted_as_it_is_and_with_every_key(self):
        every = KEY.sub(r"\2 = \3", self.text)
        nats = re.sub(r"(?m)^kafka.*\n", "", every)
        kafka = re.sub(r"(?m)^nats.*\n", "", every)
        for text in (self.text, nats, kafka):
            result = self.check(text)
            self.assertEqual((0, ""), (result.returncode, result.stderr))

    def test_check_rejects_a_wrong_value_and_an_unknown_key(self):
        for line in ('drain-time = "long"', "unknown = 1"):
            result = self.check(f"{self.text}\n{line}\n")
            self.assertEqual(2, result.returncode, line)
            self.assertIn(line.split()[0], result.stderr)


class Units(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def analyze(self, name, change, *command):
        """Runs systemd-analyze on a copy of the unit that starts the program of this build."""
        path = self.folder / name
        path.write_text(programs.replaced(programs.text_of(name), {"/usr/bin/jx": JX, **change}),
                        encoding="utf-8")
        result = subprocess.run([programs.program("systemd-analyze"), *command, path],
                                capture_output=True, text=True, check=False)
        return result.returncode, result.stderr

    def test_are_valid(self):
        for name in UNITS:
            self.assertEqual((0, ""), self.analyze(name, {}, "verify"), name)
            self.assertIn("Unknown key", self.analyze(name, {"KillSignal": "KillSignals"},
                                                      "verify")[1])

    def test_have_few_rights(self):
        command = ("security", "--offline=true", f"--threshold={EXPOSURE}")
        for name in UNITS:
            self.assertEqual(0, self.analyze(name, {}, *command)[0], name)
            self.assertEqual(1, self.analyze(name, {"DynamicUser=yes": "User=root"}, *command)[0])

    def test_allow_what_the_gateway_needs(self):
        unit = programs.text_of("jx-gateway.service")
        defaults = options()
        stop_s = int(re.search(r"^TimeoutStopSec=(\d+)$", unit, re.MULTILINE).group(1))
        self.assertGreater(stop_s * 1000, int(defaults["drain-time"]))
        files = int(re.search(r"^LimitNOFILE=(\d+)$", unit, re.MULTILINE).group(1))
        self.assertGreater(files, int(defaults["max-connections"]))

    def test_start_commands_with_existing_options(self):
        for name, subcommand in (("jx-gateway.service", ["gateway"]),
                                 ("jx-gateway-drain.service", ["gateway", "drain"])):
            command = re.search(r"^ExecStart=/usr/bin/jx (.*)$", programs.text_of(name),
                                re.MULTILINE).group(1).split()
            self.assertEqual(subcommand, command[:len(subcommand)])
            used = {word for word in command if word.startswith("--")}
            self.assertTrue(used)
            help_text = subprocess.run([JX, *subcommand, "--help"], capture_output=True,
                                       text=True, check=True).stdout
            self.assertEqual(set(), used - set(re.findall(r"^ +(--[\w-]+)", help_text, re.M)))


if __name__ == "__main__":
    unittest.main()
