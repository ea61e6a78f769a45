// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { pathOf, shownValue } from './json.js';

// What changes from one event to the next although nothing was said differently.
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
 * What `after` says otherwise than `before`: [{path, kind, before, after, isVolatile}] with kind
 * 'added', 'removed' or 'changed', in the order of the newer body, what was removed last. Numbers
 * are compared as they are written: 1.0 is not 1.
 */
export function differences(before, after) {
  const old = collect(before, '', new Map());
  const now = collect(after, '', new Map());
  const found = [];
  const note = (kind, path, from, to) =>
    found.push({ path, kind, before: from, after: to, isVolatile: VOLATILE.has(path) });
  for (const [path, text] of now) {
    if (!old.has(path)) note('added', path, null, text);
    else if (old.get(path) !== text) note('changed', path, old.get(path), text);
  }
  for (const [path, text] of old) {
    if (!now.has(path)) note('removed', path, text, null);
  }
  return found;
}
