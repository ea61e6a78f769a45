// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { listRows } from './api.js';
import { passes, queryOf } from './filters.js';

const FIRST_ROWS = 300;
const PAGE_ROWS = 1000;
// Enough rows for a working day; older rows are requested again when needed.
const KEPT_ROWS = 250000;
// After a pause with more events than this, only the newest page is loaded.
const CATCH_UP_ROWS = 2000;
const TEXT_DELAY_MS = 120;

/**
 * The rows that match the filters, from the newest to the oldest row that was scrolled to. Calls
 * `onChange({added, isNew})` after each change: `added` is the number of rows added at the top;
 * `isNew` is true when the whole list was replaced.
 */
export class EventFeed {
  constructor(onChange, onError) {
    this.onChange = onChange;
    this.onError = onError;
    this.filters = {};
    this.isPaused = false;
    this.clear();
  }

  /** Newest first: at(0) is the newest. */
  at(index) {
    return this.rows[this.rows.length - 1 - index];
  }

  get length() {
    return this.rows.length;
  }

  /** Returns the index of the row with this ID; -1 when it is not loaded. */
  indexOf(id) {
    const place = this.placeOf(id);
    return place < 0 ? -1 : this.rows.length - 1 - place;
  }

  clear() {
    this.rows = [];  // oldest first, so that an arrival is a push
    this.waiting = 0;
    this.pending = [];
    this.isLoading = false;
    this.hasAll = false;
    this.generation = (this.generation ?? 0) + 1;
  }

  async load(filters) {
    this.filters = filters;
    this.clear();
    this.isLoading = true;
    const rows = await this.request([['limit', FIRST_ROWS]]);
    if (!rows) return;
    this.rows = rows;
    this.hasAll = rows.length === 0;
    this.isLoading = false;
    for (const row of this.pending.splice(0)) this.put(row);
    this.onChange({ added: 0, isNew: true });
  }

  /** Loads the page below the oldest row, unless it does not exist or is loading. */
  async loadOlder() {
    if (this.isLoading || this.hasAll || this.rows.length === 0) return;
    this.isLoading = true;
    const rows = await this.request([['limit', PAGE_ROWS], ['before', this.rows[0].id]]);
    if (!rows) return;
    this.isLoading = false;
    this.hasAll = rows.length === 0;
    this.rows = rows.concat(this.rows);
    this.onChange({ added: 0, isNew: false });
  }

  /** Handles the row of a new event. */
  arrive(row) {
    if (this.filters.text) {
      this.loadNewSoon();
    } else if (passes(row, this.filters)) {
      this.add(row);
    }
  }

  add(row) {
    if (this.isLoading && this.rows.length === 0) {
      this.pending.push(row);
    } else if (this.isPaused) {
      this.waiting += 1;
      this.onChange({ added: 0, isNew: false });
    } else if (this.put(row)) {
      this.onChange({ added: 1, isNew: false });
    }
  }

  put(row) {
    if (this.rows.length > 0 && row.id <= this.rows.at(-1).id) return false;
    this.rows.push(row);
    if (this.rows.length > KEPT_ROWS) {
      this.rows.splice(0, PAGE_ROWS);
      this.hasAll = false;
    }
    return true;
  }

  repeat(id, repeats) {
    const place = this.placeOf(id);
    if (place < 0) return;
    this.rows[place] = { ...this.rows[place], repeats };
    this.onChange({ added: 0, isNew: false });
  }

  pause() {
    this.isPaused = true;
  }

  async resume() {
    this.isPaused = false;
    const missed = this.waiting;
    this.waiting = 0;
    if (missed > CATCH_UP_ROWS || this.rows.length === 0) return this.load(this.filters);
    return this.loadNew();
  }

  loadNewSoon() {
    this.timer ??= setTimeout(() => {
      this.timer = null;
      this.loadNew();
    }, TEXT_DELAY_MS);
  }

  /** Loads the rows after the newest row; only counts them while the list is paused. */
  async loadNew() {
    if (this.rows.length === 0) return this.isPaused ? undefined : this.load(this.filters);
    for (;;) {
      const rows = await this.request([['limit', PAGE_ROWS], ['after', this.rows.at(-1).id]]);
      if (!rows) return;
      if (this.isPaused) {
        this.waiting = rows.length;
        return this.onChange({ added: 0, isNew: false });
      }
      const added = rows.filter((row) => this.put(row)).length;
      if (added > 0) this.onChange({ added, isNew: false });
      if (rows.length === 0) return;
    }
  }

  /** Returns undefined when the request failed or the list was replaced in the meantime. */
  async request(fields) {
    const { generation } = this;
    try {
      const { events } = await listRows([...fields, ...queryOf(this.filters)]);
      return generation === this.generation ? events : undefined;
    } catch (error) {
      if (generation !== this.generation) return undefined;
      this.isLoading = false;
      this.onError(error);
      return undefined;
    }
  }

  placeOf(id) {
    let low = 0;
    let high = this.rows.length - 1;
    while (low <= high) {
      const middle = (low + high) >> 1;
      if (this.rows[middle].id === id) return middle;
      if (this.rows[middle].id < id) low = middle + 1;
      else high = middle - 1;
    }
    return -1;
  }
}
