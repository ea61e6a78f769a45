// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { randomUUID } from 'node:crypto';
import { Agent, request } from 'node:https';

export const SESSION = 'AAAAAAAA-0000-4000-8000-000000000001';

/** The context block that the library writes to every event. */
function context({ id, session, atMs }) {
  return {
    event_id: id ?? randomUUID().toUpperCase(),
    device: {
      sdk_id: 'F6F3F4DE-12C6-4632-84C6-736C209F349D',
      language: 'en', region: 'GB', manufacturer: 'Maker', model: 'TV-1', type: 'tvos',
      network: { connection_type: 'ethernet' },
      os: { name: 'tvos', version: '12' },
      screen: { width: 1920, height: 1080 },
      timezone: 'Etc/UTC',
      lifecycle: {
        session_id: session ?? SESSION, new_session: false, session_duration: 0,
        current_session: 1767225600000, visit_number: 1, current_visit: 1767225600000,
        session_number: 1, first_visit: 1767225600000, last_visit: 1767225600000,
        last_call: 1767225600000, last_session_start: 0, last_session_last_hit: 0,
        foreground_transitions: 1, foreground_time: 0, background_time: 0,
        first_execute: false, is_first_visit: true,
      },
    },
    app: { name: 'app', version: '1.0', serverside_version: '5.4.5', core_version: '1.0.0' },
    event_timestamp: atMs ?? 1767225600000,
  };
}

/** Returns the body of an event as the library writes it. */
export function body(name, fields = {}, about = {}) {
  return JSON.stringify({
    event_name: name,
    context: context(about),
    ...fields,
    user: { anonymous_id: 'C1FEFB36-2D53-4A93-ADDF-F498C46EBE0C' },
  });
}

export const search = (term, about) => body('search', { search_term: term }, about);

/** Posts bodies over HTTPS like an application, on keep-alive connections. */
export class Sender {
  constructor(collector, connections = 1) {
    this.port = collector.eventsPort;
    this.agent = new Agent({ ca: collector.ca, keepAlive: true, maxSockets: connections });
  }

  send(text) {
    const bytes = Buffer.from(text);
    return new Promise((resolve, reject) => {
      const sent = request({
        host: '127.0.0.1', port: this.port, path: '/events?jx_s=7&token=page-tests',
        method: 'POST', agent: this.agent,
        headers: { 'Content-Type': 'application/json', 'Content-Length': bytes.length },
      }, (response) => {
        response.resume();
        response.on('end', () => resolve(response.statusCode));
      });
      sent.on('error', reject);
      sent.end(bytes);
    });
  }

  close() {
    this.agent.destroy();
  }
}
