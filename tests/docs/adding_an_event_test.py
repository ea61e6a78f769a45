#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Follows docs/adding-an-event.md in a copy of the sources and runs the result.

adding_an_event_test.py ROOT LIBRARY COMPILER [FLAG...]

The patch of the page must apply and add fewer than 20 lines. The class that is generated from it
must be found by its name, meet its condition once the field is set, and write the field. A class of
an application that the page shows must do the same, except that it is not in the list of classes.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

MAX_LINES = 20
COPIED = ("jx", "scripts", "tools/catalogue", "tests/events/catalogue", "swift")
PROGRAM = """
#include <iostream>

#include "jx/JXServerSide.h"
#include "jx/core/json/JXJsonWriter.h"

namespace {

#include "stars.h"

template <typename Event>
void print() {
  const auto event = Event::init();
  std::cout << event->verifyEvent() << ' ' << event->firstFailedCondition() << '\\n';
  event->setStars(5);
  const jx::JXEventClass& type = event->ownEventClass();
  std::cout << event->verifyEvent() << ' ' << (jx::eventClassNamed(type.className) == &type) << ' '
            << type.create(0, nullptr)->name() << '\\n';
  jx::JXJsonObject body = event->getJsonObject();
  body.remove("context");
  std::cout << jx::JXJsonWriter::write(body, jx::JXJsonStyle::Compact).text << '\\n';
}

}  // namespace

int main() {
  print<jx::JXRateEvent>();
  print<StarsEvent>();
}
"""
EXPECTED = """0 stars must be set
1 1 rate
{"event_name":"rate","stars":5}
0 stars must be set
1 0 stars
{"event_name":"stars","stars":5}
"""


def run(command, folder):
    result = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, check=False)
    if result.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}\n{result.stdout}")
    return result.stdout


def block(page, language):
    return re.search(rf"^```{language}\n(.*?)^```$", page, re.MULTILINE | re.DOTALL).group(1)


def patched_copy(root, folder, patch):
    for part in COPIED:
        shutil.copytree(root / part, folder / part)
    shutil.copy(root / ".clang-format", folder)
    (folder / "rate.diff").write_text(patch, encoding="utf-8")
    run(["git", "apply", "--whitespace=error", "rate.diff"], folder)
    generated = run([folder / "scripts/catalogue"], folder).split()
    expected = ["jx/events/JXEventClasses.h", "jx/events/engagement/JXRateEvent.h",
                "jx/events/engagement/JXRateEvent.cpp", "jx/c/events/JXRateEvent.h",
                "jx/c/jx_events.h", "jx/c/internal/JXCClasses.h", "jx/objc/JXEvents.h",
                "jx/objc/JXRateEvent.h", "jx/objc/JXRateEvent.mm",
                "swift/JXServerSide/Engagement.swift"]
    if generated != expected:
        sys.exit(f"scripts/catalogue generated {generated}, not {expected}")


def main():
    root, library = pathlib.Path(sys.argv[1]), sys.argv[2]
    compiler, flags = sys.argv[3], sys.argv[4:]
    page = (root / "docs/adding-an-event.md").read_text(encoding="utf-8")
    patch = block(page, "diff")
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
        (folder / "stars.h").write_text(
            block(page, "cpp").replace('#include "jx/JXServerSide.h"\n', ""), encoding="utf-8")
        (folder / "main.cpp").write_text(PROGRAM, encoding="utf-8")
        run([compiler, *flags, "-std=c++20", "-I.", "-fsyntax-only",
             "tests/events/catalogue/ExpectedCatalogue.cpp"], folder)
        run([compiler, *flags, "-std=c++17", "-I.", "-fsyntax-only", "jx/c/jx_catalogue.cpp"],
            folder)
        # The linker prefers the new list of classes, because it precedes the library.
        run([compiler, *flags, "-std=c++17", "-I.", "main.cpp", "jx/events/JXEventClass.cpp",
             "jx/events/engagement/JXRateEvent.cpp", library, "-lcurl", "-lpthread",
             f"-Wl,-rpath,{os.path.dirname(library)}", "-o", "rate"], folder)
        printed = run([folder / "rate"], folder)
    if printed != EXPECTED:
        sys.exit(f"expected\n{EXPECTED}printed\n{printed}")


if __name__ == "__main__":
    main()
