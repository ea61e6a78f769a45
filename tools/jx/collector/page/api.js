// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

/** An error response of the collector. */
export class ApiError extends Error {
  constructor(status, message) {
    super(message);
    this.status = status;
  }
}

async function request(path, options) {
  const response = await fetch(path, { cache: 'no-store', ...options });
  const text = await response.text();
  if (response.ok) return text === '' ? {} : JSON.parse(text);
  let message = `the collector returned HTTP status ${response.status}`;
  try {
    message = JSON.parse(text).error ?? message;
  } catch {
    // Not JSON: the message contains the status only.
  }
  throw new ApiError(response.status, message);
}

function send(method, path, body) {
  return request(path, {
    method,
    headers: { 'Content-Type': 'application/json' },
    body: body === undefined ? undefined : JSON.stringify(body),
  });
}

export function listRows(fields) {
  return request(`/api/events?${new URLSearchParams([['view', 'row'], ...fields])}`);
}

export function listEvents(fields) {
  return request(`/api/events?${new URLSearchParams([['view', 'full'], ...fields])}`);
}

export const findEvent = (id) => request(`/api/events/${id}`);
export const summary = () => request('/api/summary');
export const listSessions = () => request('/api/sessions');
export const reset = () => send('POST', '/api/reset', {});
export const about = () => request('/api/about');
export const clearFaults = () => send('DELETE', '/api/faults');
