// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { clearFaults } from './api.js';
import { button, element } from './dom.js';
import { counted, duration, timeOfDay } from './format.js';

/** What is armed, in words; an empty text when nothing is. */
export function faultWords(faults) {
  const armed = faults?.armed ?? faults;
  if (!armed || (!armed.action && !armed.status && !armed.delay_ms)) return '';
  const which = armed.next > 0 ? `the next ${counted(armed.next, 'request')}`
    : 'every request';
  const delay = armed.delay_ms > 0 ? `, after ${duration(armed.delay_ms)}` : '';
  if (armed.action === 'reset') return `The collector breaks the connection of ${which}${delay}.`;
  if (armed.action === 'hang') return `The collector leaves ${which} without an answer.`;
  const retry = armed.retry_after ? ` and Retry-After ${armed.retry_after}` : '';
  if (armed.status) {
    return `The collector answers ${which} with status ${armed.status}${retry}${delay}.`;
  }
  return `The collector answers ${which} late${delay}.`;
}

/** The lines above everything: the collector is away, faults are armed, something went wrong. */
export class Notices {
  constructor(parent, onRetry) {
    this.parent = parent;
    this.away = element('div', { class: 'notice away', role: 'alert', hidden: true });
    this.fault = element('div', { class: 'notice armed', role: 'status', hidden: true });
    this.trouble = element('div', { class: 'notice trouble', role: 'alert', hidden: true });
    this.retry = button('Try now', onRetry);
    parent.replaceChildren(this.away, this.fault, this.trouble);
  }

  /** Tells since when the collector is away, and counts down to the next try. */
  showAway(state) {
    clearInterval(this.clock);
    this.away.hidden = state.isConnected;
    if (state.isConnected) return;
    const next = element('span', { 'aria-live': 'off' });
    const tick = () => {
      const seconds = Math.ceil((state.retryMs - Date.now()) / 1000);
      next.textContent = seconds > 0 ? ` Next try in ${seconds} s.` : ' Trying…';
    };
    tick();
    this.clock = setInterval(tick, 250);
    this.away.replaceChildren(
      element('strong', {}, `No connection to the collector since ${timeOfDay(state.sinceMs)}.`),
      element('span', {}, ' What is shown may be old.'), next, this.retry);
  }

  showFaults(faults) {
    const words = faultWords(faults);
    this.fault.hidden = words === '';
    this.fault.replaceChildren(element('strong', {}, 'Faults are on. '), words,
      button('Clear', async () => {
        try {
          await clearFaults();
          this.showFaults(null);
        } catch (problem) {
          this.showTrouble(`The faults are still on: ${problem.message}`);
        }
      }, { id: 'clear-faults' }));
  }

  showTrouble(text) {
    this.trouble.hidden = false;
    this.trouble.replaceChildren(text,
      button('Dismiss', () => { this.trouble.hidden = true; }));
  }
}
