#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Tests deploy/alerts.yaml and deploy/prometheus.yml with promtool and a gateway.

alerts_test.py JX     the path of the program jx
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import programs
import yaml

JX = sys.argv.pop(1)
RULES = programs.DEPLOY / "alerts.yaml"
TESTS = pathlib.Path(__file__).with_name("alerts_test.yaml")
METRIC = re.compile(r"\b((?:jx_gateway|process)_\w+)(?:\{([^}]*)\})?")


def promtool(*arguments):
    return subprocess.run([programs.program("promtool"), *arguments], capture_output=True,
                          text=True, check=False)


def rules():
    return [rule for group in yaml.safe_load(RULES.read_text(encoding="utf-8"))["groups"]
            for rule in group["rules"]]


class Alerts(unittest.TestCase):
    def assert_passes(self, *arguments):
        result = promtool(*arguments)
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)

    def test_are_valid(self):
        self.assert_passes("check", "config", programs.DEPLOY / "prometheus.yml")

    def test_fire_when_they_should(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "tests.yaml"
            tests = TESTS.read_text(encoding="utf-8").replace("RULES", str(RULES))
            path.write_text(tests, encoding="utf-8")
            self.assert_passes("test", "rules", path)

    def test_are_all_tested_with_and_without_an_alert(self):
        tests = yaml.safe_load(TESTS.read_text(encoding="utf-8"))["tests"]
        for fires in (True, False):
            tested = [case["alertname"] for test in tests for case in test["alert_rule_test"]
                      if bool(case["exp_alerts"]) == fires]
            self.assertEqual([rule["alert"] for rule in rules()], tested)

    def test_are_all_explained_on_the_page(self):
        page = (programs.ROOT / "docs/production.md").read_text(encoding="utf-8")
        self.assertEqual([rule["alert"] for rule in rules()],
                         re.findall(r"^\| `(Gateway\w+)` \|", page, re.MULTILINE))

    def test_use_metrics_and_labels_of_the_gateway(self):
        gateway = programs.Gateway(self, [JX, "gateway", "--plain", "--port", "0", "--admin-port",
                                          "0", "--nats", "nats://127.0.0.1:1"])
        status, metrics = gateway.get("metrics")
        self.assertEqual(200, status)
        found = set()
        for rule in rules():
            for name, labels in METRIC.findall(rule["expr"]):
                found.add(name)
                self.assertRegex(metrics, rf"(?m)^{name}[ {{]", rule["alert"])
                reason = re.search(r'reason=~?"([^"]*)"', labels)
                if reason:
                    for one in reason.group(1).split("|"):
                        self.assertRegex(metrics, rf'(?m)^{name}\{{reason="{one}"\}} ')
        self.assertGreater(len(found), 7)


if __name__ == "__main__":
    unittest.main()
