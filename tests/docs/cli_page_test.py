#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Compares docs/cli.md with the program.

    cli_page_test.py PROGRAM PAGE SCRIPT_LINE_SOURCE

Each option that `jx [COMMAND] --help` prints is in a table of the command's section, and each option
in a table is printed by --help. Default values that --help prints are compared as well. The
commands of session scripts and their keys are compared with the table in SCRIPT_LINE_SOURCE.
"""
import re
import subprocess
import sys

COMMANDS = ["", "replay", "collector", "collector ca", "gateway", "gateway setup", "gateway drain", "queue", "demo"]
SECTION = re.compile(r"^## (.*)\n", re.MULTILINE)
# "  -h,--help           Print", "  --site INT=1        Set the site ID"
HELP_OPTION = re.compile(r"^ +(?:-\w,)?(--[\w-]+)(.*)$", re.MULTILINE)
HELP_DEFAULT = re.compile(r"^ \S(?:.*?\S)??=(\S+)(?: |$)")
PAGE_OPTION = re.compile(r"^\| `(--[\w-]+)[^`]*` \|(?: ([^|]*) \|)?", re.MULTILINE)
HELP_COMMAND = re.compile(r"^  (\w+) +\S", re.MULTILINE)
VERB_SOURCE = re.compile(r'\{"(\w+)", \{([^}]*)\}, read')
VERB_PAGE = re.compile(r"^\| `(\w+)` \| ([^|]*) \|", re.MULTILINE)


class Failure(Exception):
    """The page and the program differ."""


def help_of(program, command):
    arguments = [program] + command.split() + ["--help"]
    return subprocess.run(arguments, stdout=subprocess.PIPE, text=True, check=True,
                          timeout=60).stdout


def sections(page):
    """Returns {title: text}; the text before the first section has the title ""."""
    parts = SECTION.split(page)
    return dict(zip([""] + parts[1::2], parts[::2]))


def options_in_help(text):
    """Returns {option: default, or None}; without --help, which is common to all."""
    found = {}
    for name, rest in HELP_OPTION.findall(text):
        default = HELP_DEFAULT.search(rest)
        found[name] = default.group(1) if default else None
    if found.pop("--help", "missing") == "missing":
        raise Failure("--help does not list itself")
    return found


def expect_same(title, on_page, in_program):
    for name in sorted(on_page ^ in_program):
        place = "in the program" if name in on_page else "on the page"
        raise Failure(f"{title}: {name} is not {place}")


def compare_options(program, page):
    count = 0
    for command in COMMANDS:
        title = f"jx {command}" if command else ""
        shown = {name: default.strip("` ") for name, default in PAGE_OPTION.findall(page[title])}
        printed = options_in_help(help_of(program, command))
        expect_same(title or "jx", set(shown), set(printed))
        for name, default in printed.items():
            if default is not None and shown[name] != default:
                raise Failure(f"{title} {name}: the default is {default}, not {shown[name]}")
        count += len(printed)
    return count


def compare_commands(program, page):
    printed = set()
    for command in [""] + COMMANDS:
        prefix = command + " " if command else ""
        text = help_of(program, command)
        if "Subcommands:" in text:
            printed |= {prefix + name
                        for name in HELP_COMMAND.findall(text[text.index("Subcommands:"):])}
    expect_same("jx", {title[3:] for title in page if re.fullmatch(r"jx( \w+)+", title)}, printed)
    expect_same("jx", set(COMMANDS) - {""}, printed)


def compare_script(page, source):
    with open(source, encoding="utf-8") as file:
        verbs = {name: set(re.findall(r'"(\w+)"', keys))
                 for name, keys in VERB_SOURCE.findall(file.read())}
    if len(verbs) < 8:
        raise Failure(f"{source} does not contain the table of commands")
    table = page["Session scripts"].split("### ")[0]
    shown = {name: set(re.findall(r"`(\w+)`", keys)) for name, keys in VERB_PAGE.findall(table)
             if name != "do"}
    expect_same("Session scripts", set(shown), set(verbs))
    for name, keys in verbs.items():
        expect_same(f"Session scripts, {name}", shown[name], keys)
    event_table = page["Session scripts"].split("### Event lines")[1].split("### ")[0]
    expect_same("Event lines", {name for name, _ in VERB_PAGE.findall(event_table)}, verbs["event"])
    return len(verbs)


def main(program, page_path, source):
    with open(page_path, encoding="utf-8") as file:
        page = sections(file.read())
    compare_commands(program, page)
    options = compare_options(program, page)
    verbs = compare_script(page, source)
    print(f"{options} options and {verbs} script commands match")


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Failure as failure:
        print(f"docs/cli.md: {failure}", file=sys.stderr)
        sys.exit(1)
