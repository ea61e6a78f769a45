#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Applies the patch of docs/adding-an-event.md to a copy of the sources and runs the result.

adding_an_event_test.py ROOT LIBRARY COMPILER [FLAG...]

The patch must apply and add fewer than 30 lines. The class that it adds must be found by its name,
meet its condition once the field is set, and write the field.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

MAX_LINES = 30
PROGRAM = """
#include <iostream>

#include "jx/JXServerSide.h"
#include "jx/core/json/JXJsonWriter.h"

int main() {
  const auto event = jx::JXRateEvent::init();
  std::cout << event->verifyEvent() << ' ' << event->firstFailedCondition() << '\\n';
  event->setStars(5);
  std::cout << event->verifyEvent() << ' '
            << (jx::eventClassNamed("JXRateEvent") == &event->ownEventClass()) << '\\n';
  jx::JXJsonObject body = event->getJsonObject();
  body.remove("context");
  std::cout << jx::JXJsonWriter::write(body, jx::JXJsonStyle::Compact).text << '\\n';
}
"""
EXPECTED = '0 stars must be set\n1 1\n{"event_name":"rate","stars":5}\n'


def run(command, folder):
    result = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, check=False)
    if result.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}\n{result.stdout}")
    return result.stdout


def patched_copy(root, folder, patch):
    for part in ("jx", "tests/events/catalogue"):
        shutil.copytree(root / part, folder / part)
    (folder / "rate.diff").write_text(patch, encoding="utf-8")
    run(["git", "apply", "--whitespace=error", "rate.diff"], folder)


def main():
    root, library = pathlib.Path(sys.argv[1]), sys.argv[2]
    compiler, flags = sys.argv[3], sys.argv[4:]
    page = (root / "docs/adding-an-event.md").read_text(encoding="utf-8")
    patch = re.search(r"^```diff\n(.*?)^```$", page, re.MULTILINE | re.DOTALL).group(1)
    added = sum(line.startswith("+") and not line.startswith("+++")
                for line in patch.splitlines())
    if added >= MAX_LINES or f"{added} lines" not in page:
        sys.exit(f"the patch adds {added} lines; it must add fewer than {MAX_LINES}, and the page "
                 "must state the number")
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        # Otherwise git would search a repository above the folder for the files.
        os.environ["GIT_CEILING_DIRECTORIES"] = str(folder.parent)
        patched_copy(root, folder, patch)
        (folder / "main.cpp").write_text(PROGRAM, encoding="utf-8")
        run([compiler, *flags, "-std=c++20", "-I.", "-fsyntax-only",
             "tests/events/catalogue/ExpectedCatalogue.cpp"], folder)
        # The linker prefers the new catalogue, because it precedes the library.
        run([compiler, *flags, "-std=c++17", "-I.", "main.cpp", "jx/events/JXEventCatalogue.cpp",
             library, "-lcurl", "-lpthread", f"-Wl,-rpath,{os.path.dirname(library)}", "-o",
             "rate"], folder)
        printed = run([folder / "rate"], folder)
    if printed != EXPECTED:
        sys.exit(f"expected\n{EXPECTED}printed\n{printed}")


if __name__ == "__main__":
    main()
