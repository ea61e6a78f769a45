// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { element } from './dom.js';
import { dateAndTime, grouped } from './format.js';

function table(caption, pairs) {
  return element('table', { class: 'pairs' },
    element('caption', {}, caption),
    element('tbody', {}, ...pairs.map(([name, value]) => element('tr', {},
      element('th', { scope: 'row' }, name), element('td', { class: 'value' }, value)))));
}

function decoded(text) {
  try {
    return decodeURIComponent(text.replaceAll('+', ' '));
  } catch {
    return text;
  }
}

function queryPairs(query) {
  return (query ?? '').split('&').filter((part) => part !== '').map((part) => {
    const at = part.indexOf('=');
    return at < 0 ? [decoded(part), ''] : [decoded(part.slice(0, at)), decoded(part.slice(at + 1))];
  });
}

// A header is [name, value] or {name, value}.
const headerPair = (header) => (Array.isArray(header) ? header : [header.name, header.value]);

/** The HTTP request of an event: request line, query, headers, and the number of repeats. */
export function requestView(event) {
  const query = queryPairs(event.query);
  const facts = [
    ['Request', `${event.method} ${event.path}${event.query ? `?${event.query}` : ''}`],
    ['Received', dateAndTime(event.received_ms)],
    ['Executed', dateAndTime(event.event_timestamp)],
    ['Repeats', event.repeats > 0
      ? `${event.repeats}, last at ${dateAndTime(event.last_seen_ms)}` : 'none'],
    ['Size', `${grouped(event.bytes ?? 0)} bytes`],
    ['Event ID', event.event_id ?? '–'],
  ];
  return element('div', {}, table('Request', facts),
    query.length > 0 ? table('Query', query) : null,
    table('Headers', (event.headers ?? []).map(headerPair)));
}
