#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Compares docs/configuration.md with the headers, the CMake files and the sources.

configuration_test.py ROOT     the root of the tree

Checks each field of the configuration with its type, its default and its name in C, each CMake
option with its default, and each environment variable that the library reads.
"""

import pathlib
import re
import sys

# Struct, its header, and the prefix that its fields have in C; None: not available in C.
STRUCTS = (("JXCoreConfiguration", "jx/core/JXCoreConfiguration.h", ""),
           ("JXOutboxBounds", "jx/core/JXOutboxBounds.h", ""),
           ("JXRetryTimings", "jx/core/transfer/JXDelivery.h", ""),
           ("JXBundleInformation", "jx/platform/JXPlatform.h", "bundle_"),
           ("JXScreenBounds", "jx/platform/JXPlatform.h", "screen_"))
NOT_IN_C = {"platform", "transport"}
EMPTY = {"JXString": "null", "JXLogSink": "empty", "JXDeliveryCallback": "empty"}
UNITS_MS = {"ms": 1, "second": 1_000, "minute": 60_000, "hour": 3_600_000, "day": 86_400_000}
FIELD_ROW = re.compile(r"^\| `(\w+)` \| `([^`]+)` \| (.+?) \| (`\w+`|-|see below) \| .+ \|$",
                       re.MULTILINE)
NAME_ROW = re.compile(r"^\| ((?:`\w+`(?:, )?)+) \| (.+?) \| .+ \|$", re.MULTILINE)
C_ROW = re.compile(r"^\| `(\w+)` \| [^|]+ \|$", re.MULTILINE)
errors = []


def section(page, title):
    found = re.search(rf"^## {re.escape(title)}\n(.*?)(?=^## |\Z)", page, re.MULTILINE | re.DOTALL)
    if not found:
        sys.exit(f"docs/configuration.md: section {title} is missing")
    return found.group(1)


def body_of(text, opening):
    """Returns the text after `opening` up to the bracket that ends it, without comments."""
    if opening not in text:
        sys.exit(f"{opening} not found in its header")
    body = re.sub(r"//[^\n]*", "", text.split(opening, 1)[1])
    return body.split("\n}", 1)[0]


def fields(root, struct, header):
    """Yields name, type and initialiser of the fields of a struct."""
    body = body_of((root / header).read_text(encoding="utf-8"), f"struct JX_API {struct} {{")
    for statement in body.split(";"):
        found = re.fullmatch(r"([\w:<> ]+?) (\w+)(?: = (.+)|\{(.+)\})?",
                             re.sub(r"\s+", " ", statement).strip())
        if found:
            yield found.group(2), found.group(1), found.group(3) or found.group(4)


def number(expression):
    """Returns the value of an initialiser, in milliseconds for a duration."""
    factor = 1
    duration = re.fullmatch(r"std::chrono::(\w+?)s\((.+)\)", expression)
    if duration:
        factor, expression = UNITS_MS[duration.group(1)], duration.group(2)
    for part in expression.split("*"):
        factor *= int(re.sub(r"['u]", "", part.strip()))
    return factor


def default_matches(shown, kind, initialiser):
    if initialiser is None:
        if kind.startswith("JX") and kind not in EMPTY:
            return shown == "see below"
        return shown == EMPTY.get(kind, "empty" if "vector" in kind else "null")
    if kind == "bool":
        return shown == initialiser
    found = re.fullmatch(r"([\d,]+)( ms)?(?: \((\d+) (MiB|\w+?)s?\))?", shown)
    value = number(initialiser)
    if not found or (found.group(2) is not None) != ("milliseconds" in kind):
        return False
    if found.group(3):
        unit = 1 << 20 if found.group(4) == "MiB" else UNITS_MS.get(found.group(4), 0)
        if int(found.group(3)) * unit != value:
            return False
    return int(found.group(1).replace(",", "")) == value


def name_in_c(name, kind, prefix):
    snake = re.sub(r"([A-Z])", lambda upper: "_" + upper.group().lower(), name)
    return prefix + snake + ("_ms" if "milliseconds" in kind else "")


def check_fields(root, page):
    c_header = (root / "jx/c/jx_configuration.h").read_text(encoding="utf-8")
    in_c = re.findall(r"(\w+);", body_of(c_header, "typedef struct jx_configuration {"))
    shown_in_c = C_ROW.findall(section(page, "Fields that exist only in C"))
    for struct, header, prefix in STRUCTS:
        shown = {name: rest for name, *rest in FIELD_ROW.findall(section(page, struct))}
        known = list(fields(root, struct, header))
        if not known:
            errors.append(f"{header}: no field of {struct} found")
        for name in shown.keys() - {name for name, _, _ in known}:
            errors.append(f"{struct}.{name} does not exist")
        for name, kind, initialiser in known:
            if name not in shown:
                errors.append(f"{struct}.{name} is missing")
                continue
            shown_kind, shown_default, shown_c = shown[name]
            if shown_kind != kind:
                errors.append(f"{struct}.{name}: the type is {kind}, not {shown_kind}")
            if not default_matches(shown_default, kind, initialiser):
                errors.append(f"{struct}.{name}: the default is {initialiser}, not {shown_default}")
            c_name = name_in_c(name, kind, prefix)
            is_struct = kind.startswith("JX") and kind not in EMPTY
            expected = "see below" if is_struct else "-" if name in NOT_IN_C else f"`{c_name}`"
            if shown_c != expected:
                errors.append(f"{struct}.{name}: the name in C must be {expected}, not {shown_c}")
            if expected.startswith("`"):
                shown_in_c.append(c_name)
    for name in set(in_c) ^ set(shown_in_c):
        errors.append(f"jx_configuration.{name} is {'missing' if name in in_c else 'unknown'}")
    if len(in_c) < 30:
        errors.append("jx/c/jx_configuration.h: fields not found")


def check_options(root, page):
    known = {}
    files = [root / "CMakeLists.txt", *root.glob("cmake/*.cmake"),
             *(file for folder in ("jx", "tools", "tests", "bench", "examples")
               for file in (root / folder).rglob("CMakeLists.txt"))]
    for file in files:
        text = file.read_text(encoding="utf-8")
        for name, default in re.findall(r'\boption\((JX_\w+)\s+"[^"]*"\s+([^\s)]+)\)', text):
            known[name] = {"ON": "on", "OFF": "off",
                           "${PROJECT_IS_TOP_LEVEL}": "on if top-level project"}.get(default, default)
        for name, default in re.findall(r'\bset\((JX_\w+) "?([^"\s]*)"? CACHE', text):
            known[name] = f"`{default}`" if default else "empty"
    shown = {name: default for names, default in NAME_ROW.findall(section(page, "Build options"))
             for name in re.findall(r"`(\w+)`", names)}
    for name in sorted(known.keys() | shown.keys()):
        if known.get(name) != shown.get(name):
            errors.append(f"{name}: the default is {known.get(name)}, not {shown.get(name)}")
    if len(known) < 10:
        errors.append("CMake options not found")


def check_environment(root, page):
    """The proxy variables are read by libcurl, the others by one file."""
    readers = [path.relative_to(root).as_posix() for path in (root / "jx").rglob("*.*")
               if "getenv(" in path.read_text(encoding="utf-8")]
    if readers != ["jx/platform/linux/JXEnvironment.cpp"]:
        errors.append(f"the environment is read by {readers}")
    source = (root / "jx/platform/linux/JXEnvironment.cpp").read_text(encoding="utf-8")
    known = set(re.findall(r'"([A-Z_]+)"', source))
    text = section(page, "Environment variables")
    shown = {name for names, reader in NAME_ROW.findall(text) if reader == "library"
             for name in re.findall(r"`(\w+)`", names)}
    for name in known ^ shown:
        errors.append(f"environment variable {name} is {'missing' if name in known else 'unknown'}")


def main():
    root = pathlib.Path(sys.argv[1])
    page = (root / "docs/configuration.md").read_text(encoding="utf-8")
    check_fields(root, page)
    check_options(root, page)
    check_environment(root, page)
    for error in errors:
        print(f"docs/configuration.md: {error}")
    sys.exit(1 if errors else 0)


if __name__ == "__main__":
    main()
