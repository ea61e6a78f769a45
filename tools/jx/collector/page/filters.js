// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

/** The filters of /api/events, with their labels. */
export const FILTERS = [
  ['text', 'Text'],
  ['name', 'Name'],
  ['class', 'Class'],
  ['good', 'Validation'],
  ['session', 'Session'],
];

/**
 * Reads the view from the fragment of the URL (after "#"): 'events' or 'sessions', the open event,
 * and the filters. A filter that is not set is omitted.
 */
export function readHash(hash) {
  const fields = new URLSearchParams(hash.replace(/^#/, ''));
  const place = { view: fields.get('view') === 'sessions' ? 'sessions' : 'events', filters: {} };
  const event = Number(fields.get('event'));
  place.event = Number.isSafeInteger(event) && event > 0 ? event : null;
  for (const [key] of FILTERS) {
    const value = fields.get(key);
    if (!value || (key === 'good' && value !== 'true' && value !== 'false')) continue;
    place.filters[key] = value;
  }
  return place;
}

export function writeHash({ view, event, filters }) {
  const fields = new URLSearchParams();
  if (view === 'sessions') fields.set('view', view);
  for (const [key] of FILTERS) if (filters[key]) fields.set(key, filters[key]);
  if (event) fields.set('event', event);
  return `#${fields}`;
}

/** Returns the filters as query parameters. */
export function queryOf(filters) {
  return FILTERS.flatMap(([key]) => (filters[key] ? [[key, filters[key]]] : []));
}

/** Returns whether a row matches all filters but the text: a row does not contain the body. */
export function passes(row, filters) {
  if (filters.name && row.name !== filters.name) return false;
  if (filters.class && row.class !== filters.class) return false;
  if (filters.good && String(row.good) !== filters.good) return false;
  return !filters.session || row.session === filters.session ||
    row.video_session === filters.session;
}
