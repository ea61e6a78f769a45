// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { shape } from './dom.js';
import { grouped, timeOfDay } from './format.js';

const MINUTES = 60;
const BAR_PX = 4;
const GAP_PX = 1;
const HEIGHT_PX = 34;
const MINUTE_MS = 60000;

/** Returns one bar per minute of the last hour, the current minute last. */
export function barsOf(minutes, nowMs) {
  const now = Math.floor(nowMs / MINUTE_MS);
  const bars = Array.from({ length: MINUTES }, (_, place) => ({
    minuteMs: (now - MINUTES + 1 + place) * MINUTE_MS, good: 0, bad: 0,
  }));
  for (const { minute_ms: minuteMs, good, bad } of minutes) {
    const bar = bars[Math.floor(minuteMs / MINUTE_MS) - now + MINUTES - 1];
    if (bar) Object.assign(bar, { good, bad });
  }
  return bars;
}

// A minute with few events is still visible next to the highest bar.
function pixels(count, most) {
  return count === 0 ? 0 : Math.max(2, Math.round((count / most) * (HEIGHT_PX - 4)));
}

function column({ minuteMs, good, bad }, place, most) {
  const x = place * (BAR_PX + GAP_PX);
  const goodPx = pixels(good, most);
  const badPx = pixels(bad, most);
  const at = (name, from, height) => (height === 0 ? null
    : shape('rect', { class: name, x, y: HEIGHT_PX - from - height, width: BAR_PX, height }));
  return shape('g', {},
    shape('title', {}, `${timeOfDay(minuteMs).slice(0, 5)}: ${good} valid, ${bad} invalid`),
    shape('rect', { class: 'ground', x, y: 0, width: BAR_PX + GAP_PX, height: HEIGHT_PX }),
    at('bad', 0, badPx), at('good', badPx, goodPx));
}

export function minuteChart(minutes, nowMs) {
  const bars = barsOf(minutes, nowMs);
  const most = Math.max(1, ...bars.map((bar) => bar.good + bar.bad));
  const sum = (key) => grouped(bars.reduce((total, bar) => total + bar[key], 0));
  const width = MINUTES * (BAR_PX + GAP_PX);
  return shape('svg', {
    class: 'minute-chart', role: 'img', width, height: HEIGHT_PX,
    viewBox: `0 0 ${width} ${HEIGHT_PX}`, preserveAspectRatio: 'none',
    'aria-label': `Events per minute in the last hour: ${sum('good')} valid, ` +
      `${sum('bad')} invalid, at most ${grouped(most)} per minute`,
  },
  shape('line', { class: 'base', x1: 0, x2: width, y1: HEIGHT_PX - 0.5, y2: HEIGHT_PX - 0.5 }),
  ...bars.map((bar, place) => column(bar, place, most)));
}
