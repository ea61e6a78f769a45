// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { summary } from './api.js';
import { element } from './dom.js';
import { grouped } from './format.js';
import { minuteChart } from './minutes.js';

const MINUTE_MS = 60000;
const MIN_REFRESH_MS = 400;
// Counting is slow when the collector has many events; most of its time is left for events.
const IDLE_FACTOR = 8;

/** The counters and the chart of the last hour, refreshed after changes. */
export class Overview {
  constructor({ counters, chart, onSummary }) {
    Object.assign(this, { counters, chart, onSummary });
    setInterval(() => this.refreshSoon(), MINUTE_MS / 2);
  }

  refreshSoon() {
    this.timer ??= setTimeout(() => this.refresh(), this.refreshDelayMs ?? 0);
  }

  async refresh() {
    const begun = performance.now();
    try {
      const result = await summary();
      this.show(result);
      this.onSummary(result);
    } catch {
      // The stream reports the lost connection.
    }
    this.refreshDelayMs = Math.max(MIN_REFRESH_MS, IDLE_FACTOR * (performance.now() - begun));
    this.timer = null;
  }

  show(result) {
    const good = result.good ?? result.events - result.bad;
    const counts = [
      ['Events', result.events, ''], ['Valid', good, 'good'],
      ['Invalid', result.bad, result.bad > 0 ? 'bad' : ''],
      ['Warnings', result.notes ?? 0, ''],
      ['Repeats', result.repeats, ''],
    ];
    this.counters.replaceChildren(...counts.map(([name, count, kind]) =>
      element('div', { class: `counter ${kind}` },
        element('dt', {}, name), element('dd', {}, grouped(count)))));
    this.chart.replaceChildren(
      element('span', { class: 'caption' }, 'Last hour', element('br'), 'per minute'),
      minuteChart(result.minutes ?? [], Date.now()));
  }
}
