// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { listEvents, listSessions } from './api.js';
import { button, element } from './dom.js';
import { counted, duration, preciseTime, shortId, timeOfDay } from './format.js';
import { groupsOf, stepsOf } from './lanes.js';
import { Timeline } from './timeline.js';

const PAGE_EVENTS = 500;
const MAX_EVENTS = 2000;

async function eventsOf(session) {
  const events = [];
  let after = 0;
  while (events.length < MAX_EVENTS) {
    const page = await listEvents([['session', session], ['after', after], ['limit', PAGE_EVENTS]]);
    if (page.events.length === 0) return { events, isWhole: true };
    events.push(...page.events);
    after = events.at(-1).id;
  }
  return { events, isWhole: false };
}

/** The list of sessions, and the timeline of the selected session. */
export class SessionView {
  constructor(parent, { onChoose, onOpen, onList }) {
    Object.assign(this, { parent, onChoose, onOpen, onList });
    this.chosen = null;
    this.list = element('nav', { class: 'session-list', 'aria-label': 'Sessions, newest first' });
    this.stage = element('div', { class: 'stage' });
    parent.replaceChildren(this.list, this.stage);
    new ResizeObserver(() => this.resized()).observe(this.stage);
  }

  /** Loads and shows a session; the newest one when `session` is not set. */
  async show(session) {
    this.wanted = session ?? null;
    try {
      const { sessions } = await listSessions();
      this.sessions = sessions;
      const chosen = this.wanted ?? sessions[0]?.session ?? null;
      this.drawList(chosen);
      await this.load(chosen);
    } catch (error) {
      this.stage.replaceChildren(element('p', { class: 'blank' },
        `Could not load the sessions: ${error.message}`));
    }
  }

  drawList(chosen) {
    this.list.replaceChildren(...this.sessions.flatMap((one) => [
      this.entry(one.session, `Session ${shortId(one.session)}`, one, chosen, false),
      ...(one.video_sessions ?? []).map((video) =>
        this.entry(video.id, `Video ${video.id}`, video, chosen, true)),
    ]));
  }

  entry(id, title, { first_ms: first, events, bad }, chosen, isVideo) {
    return element('button', {
      type: 'button', class: isVideo ? 'entry video' : 'entry', 'data-session': id,
      'aria-current': id === chosen ? 'true' : null, on: { click: () => this.onChoose(id) },
    },
    element('span', { class: 'entry-title' }, title),
    bad > 0 ? element('span', { class: 'mark error' }, `${bad} invalid`) : null,
    element('span', { class: 'entry-facts' },
      `${counted(events, 'event')}, received ${timeOfDay(first)}`));
  }

  async load(session) {
    if (session === null) {
      this.drawn = null;
      this.stage.replaceChildren(element('p', { class: 'blank' },
        'No sessions yet. A session appears with the first event that has a session ID.'));
      return;
    }
    const { events, isWhole } = await eventsOf(session);
    if (this.wanted !== null && this.wanted !== session) return;
    this.drawn = { session, steps: stepsOf(events), isWhole };
    this.redraw();
  }

  // The layout depends only on the width; the height follows from it.
  resized() {
    if (this.stage.clientWidth !== this.width) this.redraw();
  }

  redraw() {
    this.width = this.stage.clientWidth;
    if (!this.drawn || this.width === 0) return;
    const focused = document.activeElement?.closest?.('.mark-point')?.dataset.id;
    this.drawStage(this.drawn);
    // Keep the focus on the same mark while events arrive.
    if (focused) this.stage.querySelector(`.mark-point[data-id="${focused}"]`)?.focus();
  }

  drawStage({ session, steps, isWhole }) {
    if (steps.length === 0) {
      this.stage.replaceChildren(element('p', { class: 'blank' },
        'The events of this session are no longer available.'));
      return;
    }
    const labelPx = Number.parseFloat(getComputedStyle(this.stage).getPropertyValue('--labels'));
    this.readout = element('div', { class: 'readout', role: 'status' },
      'Hover over a mark to preview its event; click it to open the event.');
    const timeline = new Timeline(steps, groupsOf(steps), {
      width: Math.max(240, this.width - labelPx - 32),
      onPoint: (step) => this.point(step),
      onOpen: this.onOpen,
    });
    const hints = [
      'Long intervals are compressed; the labels show actual times.',
      timeline.isWide ? 'The timeline continues to the right: scroll, or use the arrow keys.' : '',
      isWhole ? '' : `Only the first ${MAX_EVENTS} events are shown.`,
    ];
    this.stage.replaceChildren(this.head(session, steps), timeline.node, this.readout,
      element('p', { class: 'hint' }, hints.filter(Boolean).join(' ')));
  }

  head(session, steps) {
    const lasted = duration(steps.at(-1).atMs - steps[0].atMs);
    const bad = steps.filter((step) => !step.event.good).length;
    return element('header', { class: 'stage-head' },
      element('h2', {}, steps.every((step) => step.video === session)
        ? `Video session ${session}` : `Session ${shortId(session)}`),
      element('p', { class: 'facts' },
        element('span', {}, `${timeOfDay(steps[0].atMs)} to ${timeOfDay(steps.at(-1).atMs)}`),
        element('span', {}, lasted), element('span', {}, counted(steps.length, 'event')),
        bad > 0 ? element('span', { class: 'mark error' }, `${bad} invalid`) : null),
      button('Show as list', () => this.onList(session)));
  }

  point({ event, name, atMs }) {
    this.readout.replaceChildren(
      element('span', { class: event.good ? 'verdict good' : 'verdict bad' },
        event.good ? '● valid' : '▲ invalid'),
      element('strong', {}, name), element('span', { class: 'time' }, preciseTime(atMs)),
      element('span', {}, event.line ?? ''));
  }
}
