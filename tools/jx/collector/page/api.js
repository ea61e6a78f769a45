// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

/** What the collector answered instead of what was asked for. */
export class ApiFault extends Error {
  constructor(status, message) {
    super(message);
    this.status = status;
  }
}

async function ask(path, options) {
  const answer = await fetch(path, { cache: 'no-store', ...options });
  const text = await answer.text();
  if (answer.ok) return text === '' ? {} : JSON.parse(text);
  let said = `the collector answers with status ${answer.status}`;
  try {
    said = JSON.parse(text).error ?? said;
  } catch {
    // No JSON: the status says enough.
  }
  throw new ApiFault(answer.status, said);
}

function send(method, path, body) {
  return ask(path, {
    method,
    headers: { 'Content-Type': 'application/json' },
    body: body === undefined ? undefined : JSON.stringify(body),
  });
}

export function listRows(fields) {
  return ask(`/api/events?${new URLSearchParams([['view', 'row'], ...fields])}`);
}

export function listEvents(fields) {
  return ask(`/api/events?${new URLSearchParams([['view', 'full'], ...fields])}`);
}

export const findEvent = (id) => ask(`/api/events/${id}`);
export const summary = () => ask('/api/summary');
export const listSessions = () => ask('/api/sessions');
export const reset = () => send('POST', '/api/reset', {});
export const about = () => ask('/api/about');
export const clearFaults = () => send('DELETE', '/api/faults');
