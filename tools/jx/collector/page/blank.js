// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { button, element } from './dom.js';

/** What the list shows while nothing has ever arrived: how to make something arrive. */
export function firstSteps({ events_port: port, ca_file: caFile }) {
  const host = `https://${location.hostname}:${port}`;
  const code = `configuration.collectionHost = ${JSON.stringify(host)};\n` +
    `configuration.caFile = ${JSON.stringify(caFile)};`;
  return element('div', { class: 'first-steps' },
    element('h2', {}, 'No event yet'),
    element('p', {},
      'Point the application at this collector before it makes its first ServerSide:'),
    element('pre', { class: 'raw', tabindex: 0, 'aria-label': 'Lines for the application' }, code),
    element('p', { class: 'hint' }, 'On another machine, use this one’s address and copy the ',
      element('a', { href: '/ca.pem', download: 'ca.pem' }, 'CA file'),
      ' there. What arrives shows here by itself.'));
}

/** What the list shows when the filters let nothing through. */
export function nothingPasses(onClear) {
  return element('div', { class: 'first-steps' },
    element('h2', {}, 'No event passes the filters'),
    element('p', {}, 'New ones that do show here as they arrive.'),
    button('Clear all filters', onClear));
}
