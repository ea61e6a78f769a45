// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { summary } from './api.js';
import { element } from './dom.js';
import { grouped } from './format.js';
import { minuteChart } from './minutes.js';

const MINUTE_MS = 60000;
const SOONEST_MS = 400;
// Counting takes the collector a while when it holds much; it is to spend its time on events.
const REST_FACTOR = 8;

/** The counts and the chart of the last hour, asked anew when something happened. */
export class Overview {
  constructor({ counters, chart, onSummary }) {
    Object.assign(this, { counters, chart, onSummary });
    setInterval(() => this.refreshSoon(), MINUTE_MS / 2);
  }

  refreshSoon() {
    this.timer ??= setTimeout(() => this.refresh(), this.restMs ?? 0);
  }

  async refresh() {
    const begun = performance.now();
    try {
      const answer = await summary();
      this.show(answer);
      this.onSummary(answer);
    } catch {
      // The stream tells that the collector is away.
    }
    this.restMs = Math.max(SOONEST_MS, REST_FACTOR * (performance.now() - begun));
    this.timer = null;
  }

  show(answer) {
    const good = answer.good ?? answer.events - answer.bad;
    const counts = [
      ['Events', answer.events, ''], ['Good', good, 'good'],
      ['Bad', answer.bad, answer.bad > 0 ? 'bad' : ''],
      ['Notes', answer.notes ?? 0, ''],
      ['Repeats', answer.repeats, ''],
    ];
    this.counters.replaceChildren(...counts.map(([name, count, kind]) =>
      element('div', { class: `counter ${kind}` },
        element('dt', {}, name), element('dd', {}, grouped(count)))));
    this.chart.replaceChildren(
      element('span', { class: 'caption' }, 'Last hour', element('br'), 'by minute'),
      minuteChart(answer.minutes ?? [], Date.now()));
  }
}
