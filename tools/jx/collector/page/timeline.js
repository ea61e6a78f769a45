// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { element, shape } from './dom.js';
import { duration, timeOfDay } from './format.js';
import { labelled, positions } from './scale.js';

const LANE_PX = 30;
const STAIR_PX = 22;
const LABELLED_PX = 44;   // a lane whose labels are above the segments, which are full of marks
const TITLE_PX = 26;
const AXIS_PX = 22;
const LETTER_PX = 6.5;

// Centred at 0,0, about 12 pixels wide.
const GLYPHS = {
  start: 'M-4,-6 L6,0 L-4,6 Z',
  resume: 'M-4,-6 L6,0 L-4,6 Z',
  pause: 'M-5,-6 h3.5 v12 h-3.5 Z M1.5,-6 h3.5 v12 h-3.5 Z',
  buffer_start: 'M-6,0 a6,6 0 1,1 12,0 a6,6 0 1,1 -12,0 Z M-3,0 a3,3 0 1,0 6,0 a3,3 0 1,0 -6,0 Z',
  buffer_complete: 'M-5,0 a5,5 0 1,1 10,0 a5,5 0 1,1 -10,0 Z',
  seek_start: 'M-6,-5 L0,0 L-6,5 Z M0,-5 L6,0 L0,5 Z',
  seek_complete: 'M-6,-5 L2,0 L-6,5 Z M3,-5 h3 v10 h-3 Z',
  complete: 'M-5,-5 h10 v10 h-10 Z',
  error: 'M-6,-3 L-3,-6 L0,-3 L3,-6 L6,-3 L3,0 L6,3 L3,6 L0,3 L-3,6 L-6,3 L-3,0 Z',
  quarter: 'M-1.5,-7 h3 v14 h-3 Z',
  playing: 'M-3,-4 L4,0 L-3,4 Z',
  ad_break_start: 'M-5,-6 h3 v12 h-3 Z M-1,-1.5 h6 v3 h-6 Z',
  ad_break_complete: 'M2,-6 h3 v12 h-3 Z M-5,-1.5 h6 v3 h-6 Z',
  ad_start: 'M-4,-6 L6,0 L-4,6 Z',
  ad_complete: 'M-5,-5 h10 v10 h-10 Z',
  ad_stop: 'M-5,-5 h10 v10 h-10 Z',
  ad_skip: 'M-6,-5 L2,0 L-6,5 Z M3,-5 h3 v10 h-3 Z',
};
const DIAMOND = 'M0,-6 L6,0 L0,6 L-6,0 Z';
const DOT = 'M-4.5,0 a4.5,4.5 0 1,1 9,0 a4.5,4.5 0 1,1 -9,0 Z';

function glyph(kind) {
  return GLYPHS[kind] ?? (kind === 'shop' || kind === 'other' ? DOT : DIAMOND);
}

/** Draws the lanes of a session. Marks react to the pointer, the arrow keys and Enter. */
export class Timeline {
  constructor(steps, groups, { width, onPoint, onOpen }) {
    Object.assign(this, { steps, groups, onPoint, onOpen });
    const scaled = positions(steps.map((step) => step.atMs), width);
    this.xs = scaled.xs;
    this.width = scaled.width;
    this.isWide = scaled.width > width;
    this.marks = new Map();
    this.node = this.build();
  }

  build() {
    const picture = shape('svg', { class: 'timeline', role: 'group', 'aria-label': 'Timeline' });
    const labels = element('div', { class: 'lane-labels', 'aria-hidden': 'true' });
    let y = 0;
    picture.append(this.breaks());
    for (const group of this.groups) {
      picture.append(shape('text', { class: 'group-title', x: 4, y: y + 17 }, group.title));
      labels.append(labelAt('', y, TITLE_PX));
      y = this.drawGroup(picture, labels, group, y + TITLE_PX);
    }
    picture.append(this.axis(y));
    const height = y + AXIS_PX;
    for (const rule of picture.querySelectorAll('.session-break')) rule.setAttribute('y2', y);
    picture.setAttribute('width', this.width);
    picture.setAttribute('height', height);
    picture.setAttribute('viewBox', `0 0 ${this.width} ${height}`);
    picture.addEventListener('keydown', (event) => this.steer(event));
    const first = this.marks.get(0);
    first?.setAttribute('tabindex', 0);
    return element('div', { class: 'timeline-frame' }, labels,
      element('div', { class: 'timeline-scroll' }, picture));
  }

  drawGroup(picture, labels, group, top) {
    const stair = [];
    let y = top;
    for (const lane of group.lanes) {
      const lanePx = heightOf(group, lane);
      const middle = y + lanePx - heightOf(group, {}) / 2;
      labels.append(labelAt(lane.label, middle - LANE_PX / 2, LANE_PX));
      picture.append(
        shape('line', { class: 'lane', x1: 0, x2: this.width, y1: middle, y2: middle }));
      for (const segment of lane.segments) {
        picture.append(this.segment(segment, middle, lane.isLabelAbove));
      }
      for (const mark of lane.marks) stair.push({ index: mark.step.index, y: middle });
      y += lanePx;
    }
    if (group.isStair) picture.append(this.stair(stair));
    y = top;
    for (const lane of group.lanes) {
      y += heightOf(group, lane);
      // Marks are drawn last, above segments and lines.
      const middle = y - heightOf(group, {}) / 2;
      for (const [place, mark] of lane.marks.entries()) {
        picture.append(this.mark(mark, middle, this.roomFor(mark, lane.marks[place + 1])));
      }
    }
    return y;
  }

  segment({ kind, from, to, label }, middle, isLabelAbove) {
    const x = this.xs[from];
    const wide = this.xs[to] - x;
    const lasted = duration(this.steps[to].atMs - this.steps[from].atMs);
    const text = label === '' ? '' : [`${label} ${lasted}`, lasted, '']
      .find((one) => isLabelAbove || one.length * LETTER_PX < wide - 24);
    const place = isLabelAbove ? { x, y: middle - 13 }
      : { x: x + wide / 2, y: middle + 4, 'text-anchor': 'middle' };
    return shape('g', { class: `segment ${kind}` },
      shape('rect', { x, y: middle - 9, width: wide, height: 18, rx: 2 }),
      shape('title', {}, `${label} ${lasted}`),
      text ? shape('text', { class: 'segment-label', ...place }, text) : null);
  }

  stair(points) {
    points.sort((a, b) => a.index - b.index);
    const path = points.map(({ index, y }, place) =>
      (place === 0 ? `M${this.xs[index]},${y}` : `H${this.xs[index]} V${y}`)).join(' ');
    return shape('path', { class: 'stair', d: path });
  }

  /** Returns whether a mark's text fits before the next mark; its aria-label always contains it. */
  roomFor({ step, text }, next) {
    const end = next ? this.xs[next.step.index] - 8 : this.width;
    return Boolean(text) && this.xs[step.index] + 7 + text.length * LETTER_PX <= end;
  }

  mark({ step, kind, text }, middle, hasRoom) {
    const { event, index } = step;
    const label = `${step.name}, ${timeOfDay(step.atMs)}${event.good ? '' : ', invalid'}` +
      (text ? `, ${text}` : '');
    const node = shape('g', {
      class: `mark-point ${event.good ? '' : 'bad'}`, role: 'button', tabindex: -1,
      'aria-label': label, 'data-id': event.id, 'data-name': step.name, 'data-kind': kind,
      transform: `translate(${this.xs[index]},${middle})`,
      on: {
        mouseenter: () => this.onPoint(step),
        focus: () => this.onPoint(step),
        click: () => this.onOpen(event.id),
      },
    },
    shape('rect', { class: 'target', x: -10, y: -11, width: 20, height: 22, rx: 3 }),
    shape('path', { class: 'glyph', d: glyph(kind) }),
    event.good ? null : shape('path', { class: 'warning', d: 'M5,-11 L11,-1 L-1,-1 Z' }),
    hasRoom ? shape('text', { x: event.good ? 7 : 13, y: 4 }, text) : null);
    this.marks.set(index, node);
    return node;
  }

  /** A line where a new session began after a long time in the background. */
  breaks() {
    const group = shape('g', {});
    for (const [place, step] of this.steps.entries()) {
      const before = this.steps[place - 1]?.event.session;
      if (!before || !step.event.session || before === step.event.session) continue;
      const x = (this.xs[place - 1] + this.xs[place]) / 2;
      group.append(shape('line', { class: 'session-break', x1: x, x2: x, y1: 0, y2: 0 }),
        shape('text', { class: 'break-label', x: x + 4, y: 12 }, 'new session'));
    }
    return group;
  }

  axis(y) {
    return shape('g', { class: 'axis' }, ...labelled(this.xs, this.width).flatMap((index) => [
      shape('line', { x1: this.xs[index], x2: this.xs[index], y1: y, y2: y + 5 }),
      shape('text', { x: this.xs[index] - 4, y: y + 17 }, timeOfDay(this.steps[index].atMs)),
    ]));
  }

  steer(event) {
    const [at] = [...this.marks].find(([, node]) => node === document.activeElement) ?? [-1];
    if (at < 0) return;
    const last = this.steps.length - 1;
    const to = {
      ArrowRight: Math.min(last, at + 1), ArrowLeft: Math.max(0, at - 1), Home: 0, End: last,
    }[event.key];
    if (event.key === 'Enter' || event.key === ' ') this.onOpen(this.steps[at].event.id);
    else if (to === undefined) return;
    else this.focus(at, to);
    event.preventDefault();
  }

  focus(from, to) {
    this.marks.get(from).setAttribute('tabindex', -1);
    this.marks.get(to).setAttribute('tabindex', 0);
    this.marks.get(to).focus();
  }
}

function heightOf(group, lane) {
  if (lane.isLabelAbove) return LABELLED_PX;
  return group.isStair ? STAIR_PX : LANE_PX;
}

function labelAt(text, top, height) {
  const label = element('span', { class: 'lane-label' }, text);
  label.style.top = `${top}px`;
  label.style.height = `${height}px`;
  return label;
}
