# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Size that the library adds to a program: rows of a separate build."""

import os
import shutil
import subprocess
import tempfile

import table

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
COMPILE = "-O2 -ffunction-sections -fdata-sections"
LINK = "-Wl,--gc-sections"
# Each build of the library: folder, description, options, limit in KiB.
BUILDS = [
    ("size", "", [], 300),
    ("size-lto", ", -flto", ["-DJX_LTO=ON"], None),
    ("size-o2-lto", ", -O2 -flto", ["-DJX_OPTIMIZE=speed", "-DJX_LTO=ON"], None),
    ("size-os", ", -Os", ["-DJX_OPTIMIZE=size"], None),
    ("size-os-lto", ", -Os -flto", ["-DJX_OPTIMIZE=size", "-DJX_LTO=ON"], None),
]


def run(*command):
    result = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, check=False)
    if result.returncode != 0:
        raise RuntimeError(f"{' '.join(command)}: {result.stdout[-2000:]}")


def stripped_size(program, folder):
    stripped = os.path.join(folder, "stripped")
    run("strip", "-o", stripped, program)
    return os.path.getsize(stripped) / 1024


def empty_program(folder):
    source, program = os.path.join(folder, "empty.cpp"), os.path.join(folder, "empty")
    with open(source, "w", encoding="ascii") as file:
        file.write("#include <string>\nint main() { return 0; }\n")
    compiler = os.environ.get("CXX") or shutil.which("c++") or "g++"
    run(compiler, *COMPILE.split(), LINK, source, "-o", program)
    return program


def build_minimal(name, options):
    """Builds examples/minimal with these options of the library and returns its path."""
    build = os.path.join(ROOT, "build", name)
    run("cmake", "--preset", "release", "-B", build, "--log-level=WARNING",
        f"-DCMAKE_CXX_FLAGS_RELEASE={COMPILE} -DNDEBUG", f"-DCMAKE_EXE_LINKER_FLAGS={LINK}",
        "-DJX_BUILD_TESTS=OFF", "-DJX_BUILD_TOOLS=OFF", "-DJX_BUILD_BENCH=OFF", *options)
    run("cmake", "--build", build, "-j", os.environ.get("JX_JOBS") or str(os.cpu_count()),
        "--target", "jx_example_minimal")
    return os.path.join(build, "examples", "minimal", "minimal")


def rows(_):
    with tempfile.TemporaryDirectory(prefix="jx-bench-") as folder:
        nothing = stripped_size(empty_program(folder), folder)
        return [table.absolute(f"stripped size of examples/minimal{what}",
                               stripped_size(build_minimal(name, options), folder), "KiB", limit,
                               f"an empty program has {nothing:.0f} KiB")
                for name, what, options, limit in BUILDS]
