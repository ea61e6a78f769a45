# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Functions shared by the checks: list the files of the source tree, read includes, cache results."""

import argparse
import fnmatch
import hashlib
import os
import re
import subprocess
import sys

CPP_PATTERNS = ("*.h", "*.c", "*.cpp", "*.m", "*.mm")
INTERNAL_HEADERS = "packaging/internal-headers.txt"

_TOKEN = re.compile(
    r'//[^\n]*|/\*.*?\*/'
    r'|R"([^\s()\\]{0,16})\(.*?\)\1"'
    r'|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'",
    re.DOTALL)
_INCLUDE = re.compile(r'^[ \t]*#[ \t]*(?:include|import)[ \t]*(<[^>\n]+>|"[^"\n]+")', re.MULTILINE)


def root_from_arguments(description):
    """Returns the root of the tree to check: this project, or another one in the check's tests."""
    parser = argparse.ArgumentParser(description=description)
    here = os.path.dirname(os.path.abspath(__file__))
    parser.add_argument("--root", default=os.path.join(here, "..", ".."), help=argparse.SUPPRESS)
    return os.path.abspath(parser.parse_args().root)


def files(root, *patterns):
    """Returns the paths, relative to `root`, of the files whose names match a pattern. Includes the
    files that git would track or, without a git checkout, all files outside the build folder."""
    found = _tracked(root) if os.path.exists(os.path.join(root, ".git")) else _walk(root)
    return sorted(path for path in set(found)
                  if any(fnmatch.fnmatch(os.path.basename(path), pattern) for pattern in patterns)
                  and os.path.isfile(os.path.join(root, path)))


def _tracked(root):
    # The checkout may belong to another user.
    listing = subprocess.run(
        ["git", "-c", "safe.directory=*", "-C", root, "ls-files", "-z", "--cached", "--others",
         "--exclude-standard"], stdout=subprocess.PIPE, check=True)
    return listing.stdout.decode().split("\0")


def _walk(root):
    for folder, folders, names in os.walk(root):
        if folder == root:
            folders[:] = [name for name in folders if name not in ("build", ".git")]
        for name in names:
            yield os.path.relpath(os.path.join(folder, name), root)


def read(root, path):
    with open(os.path.join(root, path), encoding="utf-8", errors="replace") as file:
        return file.read()


def without_comments(text, keep_strings=False):
    """Returns `text` with comments replaced by blanks, and strings too unless they are kept. Every
    remaining character keeps its line."""
    def blank(match):
        token = match.group(0)
        if keep_strings and not token.startswith("/"):
            return token
        return re.sub(r"[^\n]", " ", token)
    return _TOKEN.sub(blank, text)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def includes(text):
    """Returns (line, target with its brackets or quotes) of each include outside comments."""
    code = without_comments(text, keep_strings=True)
    return [(line_of(code, match.start(1)), match.group(1)) for match in _INCLUDE.finditer(code)]


def with_own_includes(root, path):
    """Returns `path` and the files of this tree that it includes, directly or not, sorted."""
    seen = {path}
    pending = [path]
    while pending:
        source = pending.pop()
        for _, spelling in includes(read(root, source)):
            target = spelling[1:-1]
            if is_objective_c(source) and "/" not in target:
                target = os.path.join(os.path.dirname(source), target)
            if target not in seen and os.path.isfile(os.path.join(root, target)):
                seen.add(target)
                pending.append(target)
    return sorted(seen)


def is_objective_c(path):
    """Returns whether the file is a public Objective-C header."""
    return os.path.dirname(path) == "jx/objc" and path.endswith(".h")


def public_headers(root):
    """Returns the C++ and C headers under jx/ that are installed."""
    internal = internal_headers(root)
    return [path for path in files(root, "*.h") if path.startswith("jx/")
            and not is_internal(path, internal) and not is_objective_c(path)]


def internal_headers(root):
    if not os.path.isfile(os.path.join(root, INTERNAL_HEADERS)):
        return []
    lines = (line.strip() for line in read(root, INTERNAL_HEADERS).splitlines())
    return [line for line in lines if line and not line.startswith("#")]


def is_internal(path, internal):
    return any(path == entry or (entry.endswith("/") and path.startswith(entry))
               for entry in internal)


class Stamps:
    """A folder with a stamp for each input that passed, so that it is not checked again. A stamp is
    the hash of everything that the result depends on."""

    MAX_STAMPS = 5000

    def __init__(self, root, name, *context):
        self._root = root
        self._folder = os.path.join(root, "build", name)
        self._context = "\0".join(context)
        os.makedirs(self._folder, exist_ok=True)

    def key(self, path, *more):
        digest = hashlib.sha256("\0".join((self._context, path) + more).encode())
        for part in with_own_includes(self._root, path):
            digest.update(part.encode() + b"\0" + read(self._root, part).encode() + b"\0")
        return digest.hexdigest()

    def holds(self, key):
        return os.path.exists(os.path.join(self._folder, key))

    def add(self, key):
        with open(os.path.join(self._folder, key), "w", encoding="utf-8"):
            pass

    def drop_old(self):
        stamps = sorted(os.scandir(self._folder), key=lambda entry: entry.stat().st_mtime)
        for entry in stamps[:-self.MAX_STAMPS]:
            os.unlink(entry.path)


def finish(findings):
    """Prints the findings and exits, with status 1 if there are any."""
    for finding in findings:
        print(finding)
    sys.exit(1 if findings else 0)


if __name__ == "__main__":
    # For the checks written in shell: sourcetree.py PATTERN... prints the matching files.
    HERE = os.path.dirname(os.path.abspath(__file__))
    print("\n".join(files(os.path.dirname(os.path.dirname(HERE)), *sys.argv[1:])))
