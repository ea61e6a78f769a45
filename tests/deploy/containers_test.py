#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Checks deploy/Containerfile and deploy/compose.yaml. No container runs.

containers_test.py JX     the path of the program jx
"""

import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

import programs
import yaml

JX = sys.argv.pop(1)
ENVIRONMENT = {"GATEWAY_PASSWORD": "a", "DRAIN_PASSWORD": "b", "SETUP_PASSWORD": "c"}
# Packages that every Debian image contains, or that only a build with sanitizers needs.
IN_EVERY_IMAGE = {"libc6", "libgcc-s1", "libstdc++6"}
OF_SANITIZERS = re.compile(r"lib(a|ub|t)san")


def instructions():
    """Returns [(instruction, rest)] of the Containerfile."""
    lines = [line for line in programs.text_of("Containerfile").splitlines()
             if not line.startswith("#")]
    text = re.sub(r"\\\n\s*", " ", "\n".join(lines))
    return [tuple(line.split(" ", 1)) for line in text.splitlines() if line]


def stages():
    """Returns {name: its instructions}."""
    found = {}
    for instruction, rest in instructions():
        if instruction == "FROM":
            found[rest.split(" AS ")[1]] = []
        else:
            list(found.values())[-1].append((instruction, rest))
    return found


def installed_by(stage):
    """Returns the Debian packages that a stage installs."""
    command = next(rest for instruction, rest in stages()[stage] if "apt-get install" in rest)
    install = re.search(r"apt-get install -y --no-install-recommends ([^&]*)", command).group(1)
    return set(install.split())


class Containerfile(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def test_names_each_stage_once_and_before_its_use(self):
        known = []
        for instruction, rest in instructions():
            if instruction == "FROM":
                self.assertRegex(rest, r"\Adebian:bookworm-slim AS [a-z]+\Z")
                known.append(rest.split(" AS ")[1])
            if "--from=" in rest:
                self.assertIn(re.search(r"--from=(\S+)", rest).group(1), known[:-1])
        self.assertEqual(["build", "gateway", "broker", "proxy"], known)

    def test_copies_the_sources_that_the_build_needs(self):
        for stage in ("build", "broker", "proxy"):
            for instruction, rest in stages()[stage]:
                if instruction == "COPY":
                    source, target = rest.split()
                    self.assertTrue((programs.ROOT / source).exists(), source)
                    if stage == "build":
                        self.copy(source, target)
        command = stages()["build"][-1][1].split(" && ")[0].split()
        self.assertEqual("cmake", command[0])
        result = subprocess.run(command, cwd=self.folder, capture_output=True, text=True,
                                check=False)
        self.assertEqual(0, result.returncode, result.stderr)

    def copy(self, source, target):
        if (programs.ROOT / source).is_dir():
            shutil.copytree(programs.ROOT / source, self.folder / target)
        else:
            (self.folder / target).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(programs.ROOT / source, self.folder / target)

    def test_installs_the_packages_of_the_shared_libraries(self):
        listed = subprocess.run(["readelf", "-d", JX], capture_output=True, text=True,
                                check=True).stdout
        needed = set()
        for library in re.findall(r"\(NEEDED\).*\[(.*)\]", listed):
            found = subprocess.run(["dpkg", "-S", f"*-linux-gnu/{library}"], capture_output=True,
                                   text=True, check=True).stdout
            needed |= {line.split(":")[0] for line in found.splitlines()}
        needed = {name for name in needed - IN_EVERY_IMAGE if not OF_SANITIZERS.match(name)}
        self.assertEqual(needed, installed_by("gateway") - {"ca-certificates"})

    def test_names_existing_packages(self):
        group = next(rest for _, rest in stages()["build"] if "scripts/packages build" in rest)
        listed = subprocess.run([programs.ROOT / "scripts/packages", "--list", *group.split()[1:]],
                                capture_output=True, text=True, check=True).stdout.split()
        self.assertIn("libnats-dev", listed)
        names = set(listed)
        for stage in ("gateway", "broker", "proxy"):
            names |= installed_by(stage)
        result = subprocess.run(["dpkg-query", "-W", *names], capture_output=True, text=True,
                                check=False)
        self.assertEqual((0, ""), (result.returncode, result.stderr))

    def test_proxy_uses_the_gateways_of_the_compose_file(self):
        command = next(rest for _, rest in stages()["proxy"] if rest.startswith("sed"))
        path = self.folder / "nginx.conf"
        path.write_text(programs.text_of("nginx.conf"), encoding="utf-8")
        subprocess.run(shlex.split(command.replace("/etc/nginx/nginx.conf", str(path))), check=True)
        text = path.read_text(encoding="utf-8")
        self.assertEqual(["gateway-1:8080", "gateway-2:8080"],
                         re.findall(r"^ *server (\S+) max_fails", text, re.MULTILINE))
        self.assertEqual(["/dev/stderr", "/dev/stdout"],
                         re.findall(r"^ *(?:error|access)_log (/\S+)", text, re.MULTILINE))


class Compose(unittest.TestCase):
    def config(self, environment):
        return subprocess.run(
            [programs.program("docker-compose"), "-f", programs.DEPLOY / "compose.yaml", "config"],
            env={"PATH": programs.PATH, **environment}, capture_output=True, text=True, check=False)

    def services(self):
        result = self.config(ENVIRONMENT)
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        return yaml.safe_load(result.stdout)["services"]

    def test_is_valid_only_with_all_passwords(self):
        self.assertEqual({"nats-1", "nats-2", "nats-3", "setup", "gateway-1", "gateway-2", "proxy",
                          "drain"}, set(self.services()))
        for name in ENVIRONMENT:
            rest = {other: value for other, value in ENVIRONMENT.items() if other != name}
            self.assertNotEqual(0, self.config(rest).returncode, name)

    def test_builds_existing_targets_and_mounts_what_certificates_writes(self):
        for name, service in self.services().items():
            build = service["build"]
            self.assertEqual(str(programs.ROOT), build["context"])
            self.assertEqual("deploy/Containerfile", build["dockerfile"])
            self.assertIn(build["target"], stages(), name)
            for volume in service["volumes"]:
                source = volume.split(":")[0]
                self.assertIn(source.replace(str(programs.DEPLOY) + "/", ""),
                              ("tls", "tls/ca.pem", "nats-1", "nats-2", "nats-3", "events"))

    def test_connects_the_services(self):
        services = self.services()
        for name in ("setup", "gateway-1", "gateway-2", "drain"):
            urls = services[name]["environment"]["JX_NATS"].split(",")
            self.assertGreater(len(urls), 1)
            user = name.split("-")[0]
            for url in urls:
                match = re.fullmatch(rf"tls://{user}:[abc]@(nats-\d)", url)
                self.assertIn(match.group(1), services, url)
        for name in ("nats-1", "nats-2", "nats-3"):
            self.assertEqual((name, name), (services[name]["hostname"],
                                            services[name]["environment"]["NATS_NAME"]))

    def test_starts_gateways_with_valid_options(self):
        authority = {"/etc/jx/ca.pem": "/etc/ssl/certs/ca-certificates.crt"}
        for name in ("gateway-1", "gateway-2"):
            service = self.services()[name]
            command = [authority.get(word, word) for word in service["command"]]
            result = subprocess.run([JX, "gateway", *command, "--check"],
                                    env={**os.environ, **service["environment"]},
                                    capture_output=True, text=True, check=False)
            self.assertEqual((0, ""), (result.returncode, result.stderr))
            self.assertIn("8080", command)

    def test_starts_setup_and_drain_with_existing_options(self):
        for name in ("setup", "drain"):
            command = self.services()[name]["command"]
            self.assertEqual(name, command[0])
            help_text = subprocess.run([JX, "gateway", name, "--help"], capture_output=True,
                                       text=True, check=True).stdout
            used = {word for word in command if word.startswith("--")}
            self.assertEqual(set(), used - set(re.findall(r"^ +(--[\w-]+)", help_text, re.M)))

    def test_gives_both_streams_less_than_a_broker_stores(self):
        command = self.services()["setup"]["command"]
        stream = int(command[command.index("--max-bytes") + 1])
        store = re.search(r"max_file_store: (\d+)GB", programs.text_of("nats.conf")).group(1)
        self.assertLess(2 * stream, int(store) * 10**9)


if __name__ == "__main__":
    unittest.main()
