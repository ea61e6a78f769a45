// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

const two = (number) => String(number).padStart(2, '0');

/** 18:15:11, in the local time zone; "–" when unknown. */
export function timeOfDay(ms) {
  if (ms === null || ms === undefined) return '–';
  const date = new Date(ms);
  return `${two(date.getHours())}:${two(date.getMinutes())}:${two(date.getSeconds())}`;
}

/** 18:15:11.042 */
export function preciseTime(ms) {
  if (ms === null || ms === undefined) return '–';
  return `${timeOfDay(ms)}.${String(new Date(ms).getMilliseconds()).padStart(3, '0')}`;
}

/** 2026-01-01 18:15:11.042 */
export function dateAndTime(ms) {
  if (ms === null || ms === undefined) return '–';
  const date = new Date(ms);
  const day = `${date.getFullYear()}-${two(date.getMonth() + 1)}-${two(date.getDate())}`;
  return `${day} ${preciseTime(ms)}`;
}

/** 850 ms, 4.2 s, 3 min 20 s, 31 min, 2 h 05 min */
export function duration(ms) {
  if (ms < 1000) return `${Math.round(ms)} ms`;
  if (ms < 10000) return `${(Math.floor(ms / 100) / 10).toFixed(1)} s`;
  const seconds = Math.floor(ms / 1000);
  if (seconds < 60) return `${seconds} s`;
  const minutes = Math.floor(seconds / 60);
  if (minutes < 10 && seconds % 60 !== 0) return `${minutes} min ${two(seconds % 60)} s`;
  if (minutes < 60) return `${minutes} min`;
  return `${Math.floor(minutes / 60)} h ${two(minutes % 60)} min`;
}

/** 1 event, 2 events, 12,345 events */
export function counted(number, one, several = `${one}s`) {
  return `${grouped(number)} ${number === 1 ? one : several}`;
}

/** 12,345 */
export function grouped(number) {
  return String(number).replace(/\B(?=(\d{3})+$)/g, ',');
}

/** Returns the first characters of an ID, enough to distinguish it from others in a list. */
export function shortId(id) {
  return id ? id.slice(0, 8) : '–';
}
