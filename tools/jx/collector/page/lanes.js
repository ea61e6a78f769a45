// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { memberOf, readJson } from './json.js';

/**
 * Converts the events of a session to lanes of marks and segments, in order of execution. Pure
 * functions: scale.js computes the position of each step, timeline.js draws it.
 */

const SHOPPING = ['view_item_list', 'select_item', 'view_item', 'add_to_wishlist', 'add_to_cart',
  'remove_from_cart', 'view_cart', 'begin_checkout', 'add_shipping_info', 'add_payment_info',
  'purchase', 'refund'];

// The state of the player after each event; null restores the previous state.
const PLAYER = {
  video_start: 'playing', video_resume: 'playing', video_pause: 'paused',
  video_buffer_start: 'buffering', video_buffer_complete: null,
  video_seek_start: 'seeking', video_seek_complete: null,
  video_complete: 'ended', video_error: 'ended',
};

function plainNumber(value) {
  return value?.kind === 'number' ? Number(value.text) : null;
}

function parsedBody(event) {
  try {
    return readJson(event.body);
  } catch {
    return null;
  }
}

/** The event with the values of its body that the timeline shows. */
function step(event, index) {
  const body = parsedBody(event);
  const cursor = plainNumber(memberOf(body, 'cursor_position'));
  const length = plainNumber(memberOf(body, 'total_length'));
  return {
    index,
    event,
    name: event.name ?? '(no name)',
    atMs: event.event_timestamp ?? event.received_ms,
    video: event.video_session ?? null,
    percent: cursor !== null && length > 0 ? Math.round((100 * cursor) / length) : null,
    adType: memberOf(body, 'ad_type')?.text ?? 'pre-roll',
    adQuartile: plainNumber(memberOf(body, 'ad_quartile')),
    title: memberOf(body, 'video_title')?.text ?? null,
  };
}

/** Returns the steps in order of execution; an event without a timestamp uses its arrival time. */
export function stepsOf(events) {
  const ordered = [...events].sort((a, b) =>
    (a.event_timestamp ?? a.received_ms) - (b.event_timestamp ?? b.received_ms) || a.id - b.id);
  return ordered.map(step);
}

function playerLane(steps) {
  const own = steps.filter((one) => one.name in PLAYER);
  const segments = [];
  let state = 'ended';
  let before = 'playing';
  own.forEach((one, place) => {
    const next = PLAYER[one.name];
    if (next === 'buffering' || next === 'seeking') before = state === 'paused' ? state : 'playing';
    state = next ?? before;
    const end = own[place + 1] ?? steps.at(-1);
    if (state !== 'ended' && end.index > one.index) {
      segments.push({ kind: state, from: one.index, to: end.index, label: state });
    }
  });
  const marks = own.map((one) => ({ step: one, kind: one.name.replace('video_', '') }));
  return { key: 'player', label: 'Player', marks, segments };
}

function contentLane(steps) {
  const own = steps.filter((one) => one.name.startsWith('video_content_'));
  const marks = own.map((one) => {
    const isQuarter = one.name === 'video_content_quarter_reached';
    return {
      step: one,
      kind: isQuarter ? 'quarter' : one.name.replace('video_content_', ''),
      text: isQuarter ? (one.percent === null ? '?' : `${one.percent}%`) : null,
    };
  });
  const first = own[0];
  const last = own.at(-1);
  const segments = first && last.index > first.index
    ? [{ kind: 'content', from: first.index, to: last.index, label: '' }] : [];
  return { key: 'content', label: 'Content', marks, segments };
}

function adLane(steps) {
  const own = steps.filter((one) => one.name.startsWith('video_ad_'));
  const segments = [];
  const open = new Map();
  const end = (scope, one) => {
    const begun = open.get(scope);
    open.delete(scope);
    if (begun && one.index > begun.index) {
      segments.push({ kind: begun.adType, from: begun.index, to: one.index, label: begun.adType });
    }
  };
  for (const one of own) {
    // An advertisement outside a break has its own segment.
    if (one.name === 'video_ad_break_start') open.set('break', one);
    else if (one.name === 'video_ad_break_complete') end('break', one);
    else if (one.name === 'video_ad_start' && !open.has('break')) open.set('ad', one);
    else if (/_(stop|complete|skip)$/.test(one.name)) end('ad', one);
  }
  const marks = own.map((one) => ({
    step: one,
    kind: one.name.replace('video_', ''),
    text: one.name === 'video_ad_playing' && one.adQuartile !== null ? `${one.adQuartile}/4` : null,
  }));
  return { key: 'ads', label: 'Ads', marks, segments, isLabelAbove: true };
}

function settingLane(steps, taken) {
  const marks = steps.filter((one) => !taken.has(one))
    .map((one) => ({ step: one, kind: 'setting' }));
  return { key: 'settings', label: 'Settings', marks, segments: [] };
}

function videoGroup(video, steps) {
  const lanes = [playerLane(steps), contentLane(steps), adLane(steps)];
  const taken = new Set(lanes.flatMap((lane) => lane.marks.map((mark) => mark.step)));
  lanes.push(settingLane(steps, taken));
  const title = steps.find((one) => one.title)?.title;
  return {
    title: title ? `${title} (${video})` : `Video session ${video}`,
    lanes: lanes.filter((lane) => lane.marks.length > 0),
  };
}

/** One lane per shopping step that occurred, in order of the purchase funnel from top to bottom. */
function shoppingGroup(steps) {
  const lanes = SHOPPING.filter((name) => steps.some((one) => one.name === name)).map((name) => ({
    key: name,
    label: name,
    marks: steps.filter((one) => one.name === name).map((one) => ({ step: one, kind: 'shop' })),
    segments: [],
  }));
  return { title: 'Shopping', lanes, isStair: true };
}

/** Returns the groups of lanes of a session; each step is a mark in exactly one lane. */
export function groupsOf(steps) {
  const videos = [...new Set(steps.filter((one) => one.video).map((one) => one.video))];
  const groups = videos.map((video) =>
    videoGroup(video, steps.filter((one) => one.video === video)));
  const rest = steps.filter((one) => !one.video);
  const shopping = rest.filter((one) => SHOPPING.includes(one.name));
  if (shopping.length > 0) groups.unshift(shoppingGroup(shopping));
  const other = rest.filter((one) => !SHOPPING.includes(one.name));
  if (other.length > 0) {
    groups.push({
      title: 'Other events',
      lanes: [{
        key: 'other', label: 'Other', segments: [],
        marks: other.map((one) => ({ step: one, kind: 'other' })),
      }],
    });
  }
  return groups;
}
