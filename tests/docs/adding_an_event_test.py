#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Does what docs/adding-an-event.md shows, in a copy of the sources.

adding_an_event_test.py ROOT LIBRARY COMPILER [FLAG...]

The page's patch applies and adds fewer than 30 lines; the class that it adds is found by its name,
is complete when the page says so, and writes its field.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

MOST_LINES = 30
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
PRINTED = '0 stars must be set\n1 1\n{"event_name":"rate","stars":5}\n'


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
    if added >= MOST_LINES or f"{added} lines" not in page:
        sys.exit(f"the patch adds {added} lines: fewer than {MOST_LINES}, and the page says so")
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        # A repository above the folder would make git look for the files there.
        os.environ["GIT_CEILING_DIRECTORIES"] = str(folder.parent)
        patched_copy(root, folder, patch)
        (folder / "main.cpp").write_text(PROGRAM, encoding="utf-8")
        run([compiler, *flags, "-std=c++20", "-I.", "-fsyntax-only",
             "tests/events/catalogue/ExpectedCatalogue.cpp"], folder)
        # The new catalogue stands before the library and so takes the place of its own.
        run([compiler, *flags, "-std=c++17", "-I.", "main.cpp", "jx/events/JXEventCatalogue.cpp",
             library, "-lcurl", "-lpthread", f"-Wl,-rpath,{os.path.dirname(library)}", "-o",
             "rate"], folder)
        printed = run([folder / "rate"], folder)
    if printed != PRINTED:
        sys.exit(f"expected\n{PRINTED}printed\n{printed}")


if __name__ == "__main__":
    main()
