// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { differences } from './difference.js';
import { element } from './dom.js';
import { counted } from './format.js';
import { readJson } from './json.js';

const SIGNS = { added: '+', removed: '−', changed: '~' };

function line({ path, kind, before, after }) {
  return element('li', { class: `change ${kind}`, 'data-path': path },
    element('span', { class: 'sign', 'aria-label': kind }, SIGNS[kind]),
    element('span', { class: 'key' }, path || '(entire body)'),
    element('span', { class: 'values' },
      before === null ? null : element('del', { class: 'value' }, before),
      after === null ? null : element('ins', { class: 'value' }, after)));
}

function list(changes) {
  return element('ul', { class: 'changes' }, ...changes.map(line));
}

function summaryOf(changes) {
  return ['added', 'removed', 'changed']
    .map((kind) => [changes.filter((change) => change.kind === kind).length, kind])
    .filter(([count]) => count > 0)
    .map(([count, kind]) => `${count} ${kind}`).join(', ');
}

/** The differences between `event` and `previous`, the previous event of the same name. */
export function changesView(previous, event) {
  let changes;
  try {
    changes = differences(readJson(previous.body), readJson(event.body));
  } catch {
    return element('p', { class: 'hint' },
      'One of the bodies is not valid JSON; the events cannot be compared.');
  }
  const relevant = changes.filter((change) => !change.isVolatile);
  const volatile = changes.filter((change) => change.isVolatile);
  return element('div', {},
    relevant.length > 0 ? element('p', { class: 'hint' }, summaryOf(relevant)) : null,
    relevant.length > 0 ? list(relevant)
      : element('p', { class: 'hint' }, 'No differences except IDs and timestamps.'),
    volatile.length === 0 ? null : element('details', { class: 'volatile' },
      element('summary', {},
        `${counted(volatile.length, 'key')} with new IDs, timestamps or durations`),
      list(volatile)));
}
