// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

const FIRST_PAUSE_MS = 500;
const LONGEST_PAUSE_MS = 10000;
// A heartbeat comes every 15 s: a connection that is silent for longer than two is dead, as after
// a laptop's sleep.
const SILENCE_MS = 35000;

/** Splits server-sent events out of pieces of text as they come. */
export class EventParser {
  constructor(onEvent) {
    this.onEvent = onEvent;
    this.rest = '';
    this.begin();
  }

  begin() {
    this.event = { type: 'message', id: null, data: [] };
  }

  push(piece) {
    const lines = (this.rest + piece).split('\n');
    this.rest = lines.pop();
    for (const line of lines) this.take(line.endsWith('\r') ? line.slice(0, -1) : line);
  }

  take(line) {
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
 * Follows /api/stream, and comes back by itself when it breaks. Before each connection it calls
 * `prepare`, which gives the id to go on from. Tells `onEvent(type, data)`, and
 * `onState({isConnected, sinceMs, retryMs})`.
 */
export class StreamClient {
  constructor({ prepare, onEvent, onState }) {
    Object.assign(this, { prepare, onEvent, onState });
    this.pauseMs = FIRST_PAUSE_MS;
    this.lostMs = null;
  }

  async run() {
    for (;;) {
      this.abort = new AbortController();
      try {
        await this.follow();
      } catch {
        // Whatever broke, what follows is the same: tell, wait, try again.
      }
      clearTimeout(this.watch);
      await this.pause();
    }
  }

  retryNow() {
    this.endPause?.();
  }

  async follow() {
    this.listen();
    const after = await this.prepare(this.abort.signal);
    const answer = await fetch(`/api/stream?after=${after}`,
      { signal: this.abort.signal, cache: 'no-store' });
    if (!answer.ok) throw new Error(`status ${answer.status}`);
    this.pauseMs = FIRST_PAUSE_MS;
    this.lostMs = null;
    this.onState({ isConnected: true });
    const parser = new EventParser(({ type, data }) => this.onEvent(type, JSON.parse(data)));
    const reader = answer.body.pipeThrough(new TextDecoderStream()).getReader();
    for (;;) {
      const { done, value } = await reader.read();
      if (done) return;
      this.listen();
      parser.push(value);
    }
  }

  listen() {
    clearTimeout(this.watch);
    this.watch = setTimeout(() => this.abort.abort(), SILENCE_MS);
  }

  pause() {
    this.abort.abort();
    this.lostMs ??= Date.now();
    const waitMs = this.pauseMs;
    this.pauseMs = Math.min(LONGEST_PAUSE_MS, waitMs * 2);
    this.onState({ isConnected: false, sinceMs: this.lostMs, retryMs: Date.now() + waitMs });
    return new Promise((resolve) => {
      this.endPause = resolve;
      setTimeout(resolve, waitMs);
    });
  }
}
