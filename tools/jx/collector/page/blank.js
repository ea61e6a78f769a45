// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { button, element } from './dom.js';

/** The empty state of a collector without events: shows how to connect an application. */
export function firstSteps({ events_port: port, ca_file: caFile }) {
  const host = `https://${location.hostname}:${port}`;
  const code = `configuration.collectionHost = ${JSON.stringify(host)};\n` +
    `configuration.caFile = ${JSON.stringify(caFile)};`;
  return element('div', { class: 'first-steps' },
    element('h2', {}, 'No events yet'),
    element('p', {},
      'Configure the application before it creates its first ServerSide:'),
    element('pre', { class: 'raw', tabindex: 0, 'aria-label': 'Application configuration' }, code),
    element('p', { class: 'hint' },
      'On another machine, use this machine’s address and copy the ',
      element('a', { href: '/ca.pem', download: 'ca.pem' }, 'CA file'),
      ' to it. Events appear here automatically.'));
}

/** The empty state of a list whose filters match no event. */
export function noMatches(onClear) {
  return element('div', { class: 'first-steps' },
    element('h2', {}, 'No matching events'),
    element('p', {}, 'New events that match the filters appear here automatically.'),
    button('Clear all filters', onClear));
}
