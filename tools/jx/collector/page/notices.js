// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { clearFaults } from './api.js';
import { button, element } from './dom.js';
import { counted, duration, timeOfDay } from './format.js';

/** Describes the active fault plan; an empty string when there is none. */
export function describeFaults(faults) {
  const armed = faults?.armed ?? faults;
  if (!armed || (!armed.action && !armed.status && !armed.delay_ms)) return '';
  const which = armed.next > 0 ? `the next ${counted(armed.next, 'request')}`
    : 'every request';
  const delay = armed.delay_ms > 0 ? `, after ${duration(armed.delay_ms)}` : '';
  if (armed.action === 'reset') return `The collector resets the connection of ${which}${delay}.`;
  if (armed.action === 'hang') return `The collector leaves ${which} without a response.`;
  const retry = armed.retry_after ? ` and Retry-After ${armed.retry_after}` : '';
  if (armed.status) {
    return `The collector responds to ${which} with status ${armed.status}${retry}${delay}.`;
  }
  return `The collector delays the response to ${which} by ${duration(armed.delay_ms)}.`;
}

/** The notices at the top of the page: connection lost, fault injection active, errors. */
export class Notices {
  constructor(parent, onRetry) {
    this.parent = parent;
    this.away = element('div', { class: 'notice away', role: 'alert', hidden: true });
    this.fault = element('div', { class: 'notice armed', role: 'status', hidden: true });
    this.error = element('div', { class: 'notice trouble', role: 'alert', hidden: true });
    this.retry = button('Retry now', onRetry);
    parent.replaceChildren(this.away, this.fault, this.error);
  }

  /** Shows since when the connection is lost, with a countdown to the next attempt. */
  showConnection(state) {
    clearInterval(this.clock);
    this.away.hidden = state.isConnected;
    if (state.isConnected) return;
    const next = element('span', { 'aria-live': 'off' });
    const tick = () => {
      const seconds = Math.ceil((state.retryMs - Date.now()) / 1000);
      next.textContent = seconds > 0 ? ` Retrying in ${seconds} s.` : ' Connecting…';
    };
    tick();
    this.clock = setInterval(tick, 250);
    this.away.replaceChildren(
      element('strong', {}, `No connection to the collector since ${timeOfDay(state.sinceMs)}.`),
      element('span', {}, ' The data shown may be out of date.'), next, this.retry);
  }

  showFaults(faults) {
    const description = describeFaults(faults);
    this.fault.hidden = description === '';
    this.fault.replaceChildren(element('strong', {}, 'Fault injection is active. '), description,
      button('Clear', async () => {
        try {
          await clearFaults();
          this.showFaults(null);
        } catch (error) {
          this.showError(`Could not clear the faults: ${error.message}`);
        }
      }, { id: 'clear-faults' }));
  }

  showError(text) {
    this.error.hidden = false;
    this.error.replaceChildren(text,
      button('Dismiss', () => { this.error.hidden = true; }));
  }
}
