#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Runs the commands of a page that require only the program, and compares their output.

    run_replay_page.py PROGRAM PAGE

Each "sh" block is run in its own shell; all blocks of a page share one folder, which is empty at
first. The "text" block after it is the expected output, where "..." matches any part of a line.
"""
import os
import pathlib
import sys
import tempfile

from run_collector_page import BLOCK, Failure, check_text, run


def main(program, page):
    blocks = [block for block in BLOCK.findall(pathlib.Path(page).read_text(encoding="utf-8"))
              if block[0] in ("sh", "text")]
    if not blocks or [kind for kind, _ in blocks] != ["sh", "text"] * (len(blocks) // 2):
        raise Failure("each \"sh\" block must be followed by one \"text\" block")
    path = os.path.dirname(os.path.abspath(program)) + os.pathsep + os.environ["PATH"]
    with tempfile.TemporaryDirectory() as folder:
        for (_, command), (_, shown) in zip(blocks[::2], blocks[1::2]):
            check_text(shown, run(command, dict(os.environ, PATH=path), folder))
    print(f"{len(blocks) // 2} command blocks printed the expected output")


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Failure as failure:
        print(f"{sys.argv[2]}: {failure}", file=sys.stderr)
        sys.exit(1)
