// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

const MARK_PX = 18;      // minimum distance between two marks
const STRETCH_PX = 11;   // added when the time between two steps doubles
const UNIT_MS = 4000;
const MIN_STRETCH = 0.25;
const LABEL_PX = 70;

/**
 * Computes the position of each step of a session. A film lasts hours and its advertisements
 * seconds: on a linear scale, half the marks would overlap. The distance therefore grows with the
 * logarithm of the time between two steps, and is at least the width of a mark. Fits `width` while
 * the distances remain distinguishable, and is wider otherwise.
 */
export function positions(times, width) {
  const gaps = times.slice(1).map((time, index) =>
    STRETCH_PX * Math.log2(1 + Math.max(0, time - times[index]) / UNIT_MS));
  const stretch = gaps.reduce((sum, gap) => sum + gap, 0);
  const marks = MARK_PX * (times.length + 1);
  const factor = stretch > 0 ? Math.max(MIN_STRETCH, (width - marks) / stretch) : 1;
  const xs = [MARK_PX];
  for (const gap of gaps) xs.push(xs.at(-1) + MARK_PX + gap * factor);
  return { xs: xs.slice(0, times.length), width: Math.max(width, xs.at(-1) + MARK_PX) };
}

/** Returns the indexes of the steps that get a time label: as many as fit. */
export function labelled(xs, width) {
  const places = [];
  let free = 0;
  xs.forEach((x, index) => {
    if (x < free || x + LABEL_PX > width + MARK_PX) return;
    places.push(index);
    free = x + LABEL_PX;
  });
  return places;
}
