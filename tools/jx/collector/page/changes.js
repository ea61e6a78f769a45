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
    element('span', { class: 'key' }, path || '(the whole body)'),
    element('span', { class: 'values' },
      before === null ? null : element('del', { class: 'value' }, before),
      after === null ? null : element('ins', { class: 'value' }, after)));
}

function list(changes) {
  return element('ul', { class: 'changes' }, ...changes.map(line));
}

function sum(changes) {
  return ['added', 'removed', 'changed']
    .map((kind) => [changes.filter((change) => change.kind === kind).length, kind])
    .filter(([count]) => count > 0)
    .map(([count, kind]) => `${count} ${kind}`).join(', ');
}

/** What `event` says otherwise than `previous`, the one before it with the same name. */
export function changesView(previous, event) {
  let changes;
  try {
    changes = differences(readJson(previous.body), readJson(event.body));
  } catch {
    return element('p', { class: 'hint' },
      'One of the two bodies is no JSON, so they cannot be compared key by key.');
  }
  const told = changes.filter((change) => !change.isVolatile);
  const volatile = changes.filter((change) => change.isVolatile);
  return element('div', {},
    told.length > 0 ? element('p', { class: 'hint' }, sum(told)) : null,
    told.length > 0 ? list(told)
      : element('p', { class: 'hint' }, 'Both say the same, but for what changes by itself.'),
    volatile.length === 0 ? null : element('details', { class: 'volatile' },
      element('summary', {},
        `${counted(volatile.length, 'key')} that change by themselves: ids and times`),
      list(volatile)));
}
