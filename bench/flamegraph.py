#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Creates a flame graph and two lists of functions from the output of `perf script`.

    perf script --no-inline -F comm,tid,ip,sym | flamegraph.py --below FUNCTION --svg FILE

Counts the samples below the outermost frame whose name contains FUNCTION. Prints two lists: the
functions by their own time, and by their time including the functions that they call.
"""

import argparse
import collections
import html
import re
import sys

WIDTH, ROW, LETTER, NARROWEST = 1200, 17, 6.6, 0.6  # pixels
KERNEL = "[kernel] "
KERNEL_DEPTH = 6  # a program cannot influence the deeper frames of a system call


def short(name, address):
    """Returns a short name, without parameters, template arguments and the library's namespace."""
    if len(address) == 16 and address.startswith("ffff"):
        return KERNEL + name
    previous = None
    while previous != name:  # starting with the innermost bracket
        previous, name = name, re.sub(r"<[^<>]*>|\{lambda\([^()]*\)#\d+\}", "", name)
    name = name.replace("(anonymous namespace)::", "").split("(")[0]
    return name.replace("jx::", "").replace("std::__cxx11::", "std::").strip(": ") or "[unknown]"


def stacks(lines, below):
    """Yields the stack of each sample, outermost first, starting with the frame named `below`."""
    frames = []
    for line in [*lines, ""]:
        found = re.match(r"\s+([0-9a-f]+) (.+)", line)
        if found:
            frames.append((found.group(2), short(found.group(2), found.group(1))))
            continue
        places = [i for i, (name, _) in enumerate(frames) if below in name]
        if places:
            names = [name for _, name in reversed(frames[:places[-1] + 1])]
            own = sum(not name.startswith(KERNEL) for name in names)
            yield names[:own + KERNEL_DEPTH]
        frames = []


class Node:
    """A function with a specific call stack."""

    def __init__(self):
        self.samples = 0
        self.callees = collections.defaultdict(Node)

    def add(self, stack):
        self.samples += 1
        if stack:
            self.callees[stack[0]].add(stack[1:])

    def depth(self):
        return 1 + max((node.depth() for node in self.callees.values()), default=0)


def colour(name):
    if name.startswith(KERNEL):
        return "#e8a33d"
    if re.match(r"(operator (new|delete)|_?_?(libc_)?(malloc|free|realloc|calloc)|_int_)", name):
        return "#d9655b"
    if name.startswith(("JX", "ServerSide", "fieldvalue")):
        return "#6fa8c9"
    return "#c9c3a5"


def boxes(name, node, left, level, scale, bottom):
    width = node.samples * scale
    if width < NARROWEST:
        return
    top = bottom - (level + 1) * ROW
    share = node.samples * scale / WIDTH * 100
    label = name.removeprefix(KERNEL)
    fitting = max(int((width - 6) / LETTER), 0)
    label = label if len(label) <= fitting else label[:max(fitting - 2, 0)] + ".."
    yield (f'<g><title>{html.escape(name)}: {share:.1f} %</title><rect x="{left:.1f}" y="{top}" '
           f'width="{width:.1f}" height="{ROW - 1}" rx="2" fill="{colour(name)}"/>')
    if width > 24:
        yield f'<text x="{left + 3:.1f}" y="{top + 12}">{html.escape(label)}</text>'
    yield "</g>"
    for callee, below in sorted(node.callees.items()):
        yield from boxes(callee, below, left, level + 1, scale, bottom)
        left += below.samples * scale


def svg(root, title):
    (name, node), = root.callees.items()
    height = node.depth() * ROW + 34
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{height}" '
           f'viewBox="0 0 {WIDTH} {height}" font-family="monospace" font-size="11">')
    yield f'<rect width="{WIDTH}" height="{height}" fill="#fdfdfb"/>'
    yield f'<text x="6" y="18" font-size="13">{html.escape(title)}</text>'
    yield from boxes(name, node, 0, 0, WIDTH / node.samples, height - 4)
    yield "</svg>"


def print_lists(samples, count):
    own = collections.Counter(stack[-1] for stack in samples)
    whole = collections.Counter(name for stack in samples for name in set(stack))
    for title, counter in (("itself", own), ("with what it calls", whole)):
        print(f"{title}:")
        for name, hits in counter.most_common(count):
            print(f"  {100 * hits / len(samples):5.1f} %  {name}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--below", required=True, help="count only samples below this function")
    parser.add_argument("--svg", required=True, help="write the flame graph to this file")
    parser.add_argument("--title", default="", help="set the title of the flame graph")
    parser.add_argument("--count", type=int, default=25, help="list this many functions [25]")
    options = parser.parse_args()
    samples = list(stacks(sys.stdin.read().splitlines(), options.below))
    if not samples:
        sys.exit(f"flamegraph: no samples below {options.below}")
    # One root, independent of its callers.
    root = Node()
    for stack in samples:
        root.add([options.below] + stack[1:])
    with open(options.svg, "w", encoding="utf-8") as file:
        file.write("\n".join(svg(root, f"{options.title} ({len(samples)} samples)")) + "\n")
    print(f"{len(samples)} samples below {options.below}")
    print_lists(samples, options.count)


if __name__ == "__main__":
    main()
