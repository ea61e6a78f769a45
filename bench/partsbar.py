#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Draws the parts of one execute() as stacked bars, from files of `scripts/bench --json`.

    partsbar.py --svg FILE LABEL=FILE[,FILE...]...

Each LABEL is a bar with the medians of its files. The last bar is the baseline of the last LABEL.
"""

import argparse
import html

import summary
import table

LEFT, WIDTH, HEIGHT, GAP, TOP = 110, 640, 40, 22, 20  # pixels
NARROWEST = 30  # for a number in a segment

HEAD = """<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 900 {height}" role="img" aria-labelledby="title desc" font-family="system-ui, 'DejaVu Sans', sans-serif" font-size="13">
<!-- Copyright 2026 The JXServerSide authors -->
<!-- SPDX-License-Identifier: Apache-2.0 -->
<title id="title">Processor time of the parts of one execute</title>
<desc id="desc">{description}</desc>
<style>
  .text {{ fill: #1c2733 }} .quiet {{ fill: #566270 }} .white {{ fill: #ffffff; font-weight: 600 }}
  .variables {{ fill: #5b3fa0 }} .event {{ fill: #0b5cad }} .blocks {{ fill: #2f7f8f }}
  .notification {{ fill: #8f1d54 }} .queue {{ fill: #a1430b }} .other {{ fill: #6b7785 }}
  @media (prefers-color-scheme: dark) {{
    .text {{ fill: #dbe3ec }} .quiet {{ fill: #9aa8b6 }} .white {{ fill: #0d1217 }}
    .variables {{ fill: #b9a3f2 }} .event {{ fill: #7ab8f5 }} .blocks {{ fill: #84cfdc }}
    .notification {{ fill: #f2a3c4 }} .queue {{ fill: #f0b07d }} .other {{ fill: #a9b5c1 }}
  }}
</style>"""

LEGEND = {"variables": "predefined variables",
          "event": "event as JSON (baseline: RapidJSON)",
          "blocks": "device, user and app as JSON",
          "notification": "notification",
          "queue": "append to the queue (baseline: one write)",
          "other": "other"}


def parts(rows):
    """Returns (class, us) of each part of one execute, and of its baseline."""
    us = {row.what.removeprefix("parts, "): row.value for row in rows}
    own = {"variables": us["variables/next millisecond"],
           "event": us["body/event"],
           "blocks": us["body"] - us["body/event"],
           "notification": us["notification without observers"],
           "queue": us["enqueue"]}
    # A part alone may take more time than within an execute.
    other = us["execute/next millisecond"] - sum(own.values())
    if other > 0:
        own["other"] = other
    baseline = {"event": us["baseline/rapidjson"],
                "queue": us["baseline/rapidjson and write"] - us["baseline/rapidjson"]}
    return own, baseline


def bar(label, segments, top, scale):
    middle = top + HEIGHT / 2 + 5
    yield f'<text class="text" x="10" y="{middle:.0f}">{html.escape(label)}</text>'
    left = LEFT
    for name, us in segments.items():
        width = us * scale
        yield (f'<rect class="{name}" x="{left:.1f}" y="{top}" width="{width:.1f}" '
               f'height="{HEIGHT}"><title>{LEGEND[name]}: {table.number(us)} us</title></rect>')
        if width >= NARROWEST:
            yield (f'<text class="white" x="{left + width / 2:.1f}" y="{middle:.0f}" '
                   f'text-anchor="middle">{us:.1f}</text>')
        left += width
    yield (f'<text class="quiet" x="{left + 8:.1f}" y="{middle:.0f}">'
           f'{sum(segments.values()):.1f} us</text>')


def svg(bars):
    scale = WIDTH / max(sum(segments.values()) for _, segments in bars)
    legend = TOP + len(bars) * (HEIGHT + GAP)
    description = " ".join(
        f"{label}: " + ", ".join(f"{LEGEND[name]} {us:.1f} us" for name, us in segments.items()) +
        "." for label, segments in bars)
    yield HEAD.format(height=legend + 70, description=html.escape(description))
    for place, (label, segments) in enumerate(bars):
        yield from bar(label, segments, TOP + place * (HEIGHT + GAP), scale)
    for place, (name, text) in enumerate(LEGEND.items()):
        left, top = 10 + place % 3 * 296, legend + place // 3 * 28
        yield f'<rect class="{name}" x="{left}" y="{top}" width="16" height="16"/>'
        yield f'<text class="quiet" x="{left + 24}" y="{top + 13}" font-size="12">{text}</text>'
    yield "</svg>"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--svg", required=True, help="write the image to this file")
    parser.add_argument("bars", nargs="+", metavar="LABEL=FILE[,FILE...]",
                        help="a bar with the medians of the files")
    options = parser.parse_args()
    bars = []
    for each in options.bars:
        label, _, paths = each.partition("=")
        own, baseline = parts(table.medians([summary.read(path) for path in paths.split(",")]))
        bars.append((label, own))
    bars.append(("baseline", baseline))
    with open(options.svg, "w", encoding="utf-8") as file:
        file.write("\n".join(svg(bars)) + "\n")


if __name__ == "__main__":
    main()
