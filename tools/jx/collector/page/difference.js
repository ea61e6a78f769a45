// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { pathOf, shownValue } from './json.js';

// Keys whose values differ between otherwise identical events.
const VOLATILE = new Set([
  'context.event_id',
  'context.event_timestamp',
  ...['session_duration', 'last_call', 'foreground_time', 'background_time', 'first_execute',
    'new_session'].map((key) => `context.device.lifecycle.${key}`),
]);

function collect(value, path, leaves) {
  if (value.members?.length > 0) {
    for (const member of value.members) collect(member.value, pathOf(path, member.key), leaves);
  } else {
    leaves.set(path, shownValue(value));
  }
  return leaves;
}

/**
 * Returns the differences from `before` to `after`: [{path, kind, before, after, isVolatile}] with
 * kind 'added', 'removed' or 'changed', in the order of `after`, removed keys last. Numbers are
 * compared as strings: 1.0 differs from 1.
 */
export function differences(before, after) {
  const old = collect(before, '', new Map());
  const now = collect(after, '', new Map());
  const found = [];
  const add = (kind, path, from, to) =>
    found.push({ path, kind, before: from, after: to, isVolatile: VOLATILE.has(path) });
  for (const [path, text] of now) {
    if (!old.has(path)) add('added', path, null, text);
    else if (old.get(path) !== text) add('changed', path, old.get(path), text);
  }
  for (const [path, text] of old) {
    if (!now.has(path)) add('removed', path, text, null);
  }
  return found;
}
