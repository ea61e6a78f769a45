// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

const INITIAL_BACKOFF_MS = 500;
const MAX_BACKOFF_MS = 10000;
// A heartbeat is sent every 15 s. A connection without data for two intervals is dead, for example
// after a laptop was suspended.
const SILENCE_MS = 35000;

/** Parses server-sent events from chunks of text. */
export class EventParser {
  constructor(onEvent) {
    this.onEvent = onEvent;
    this.rest = '';
    this.begin();
  }

  begin() {
    this.event = { type: 'message', id: null, data: [] };
  }

  push(chunk) {
    const lines = (this.rest + chunk).split('\n');
    this.rest = lines.pop();
    for (const line of lines) this.parseLine(line.endsWith('\r') ? line.slice(0, -1) : line);
  }

  parseLine(line) {
    if (line === '') {
      if (this.event.data.length > 0) {
        this.onEvent({ ...this.event, data: this.event.data.join('\n') });
      }
      this.begin();
      return;
    }
    const colon = line.indexOf(':');
    const field = colon < 0 ? line : line.slice(0, colon);
    const value = colon < 0 ? '' : line.slice(colon + 1).replace(/^ /, '');
    if (field === 'event') this.event.type = value;
    else if (field === 'id') this.event.id = value;
    else if (field === 'data') this.event.data.push(value);
  }
}

/**
 * Reads /api/stream and reconnects automatically. Calls `prepare` before each connection, which
 * returns the event ID to continue from. Calls `onEvent(type, data)` for each event and
 * `onState({isConnected, sinceMs, retryMs})` when the connection changes.
 */
export class StreamClient {
  constructor({ prepare, onEvent, onState }) {
    Object.assign(this, { prepare, onEvent, onState });
    this.backoffMs = INITIAL_BACKOFF_MS;
    this.lostMs = null;
  }

  async run() {
    for (;;) {
      this.abort = new AbortController();
      try {
        await this.follow();
      } catch {
        // Every error is handled the same way: report, wait, reconnect.
      }
      clearTimeout(this.watchdog);
      await this.backOff();
    }
  }

  retryNow() {
    this.endBackoff?.();
  }

  async follow() {
    this.restartWatchdog();
    const after = await this.prepare(this.abort.signal);
    const response = await fetch(`/api/stream?after=${after}`,
      { signal: this.abort.signal, cache: 'no-store' });
    if (!response.ok) throw new Error(`status ${response.status}`);
    this.backoffMs = INITIAL_BACKOFF_MS;
    this.lostMs = null;
    this.onState({ isConnected: true });
    const parser = new EventParser(({ type, data }) => this.onEvent(type, JSON.parse(data)));
    const reader = response.body.pipeThrough(new TextDecoderStream()).getReader();
    for (;;) {
      const { done, value } = await reader.read();
      if (done) return;
      this.restartWatchdog();
      parser.push(value);
    }
  }

  restartWatchdog() {
    clearTimeout(this.watchdog);
    this.watchdog = setTimeout(() => this.abort.abort(), SILENCE_MS);
  }

  backOff() {
    this.abort.abort();
    this.lostMs ??= Date.now();
    const waitMs = this.backoffMs;
    this.backoffMs = Math.min(MAX_BACKOFF_MS, waitMs * 2);
    this.onState({ isConnected: false, sinceMs: this.lostMs, retryMs: Date.now() + waitMs });
    return new Promise((resolve) => {
      this.endBackoff = resolve;
      setTimeout(resolve, waitMs);
    });
  }
}
