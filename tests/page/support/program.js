// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { spawn } from 'node:child_process';
import { mkdtemp, readFile, rm } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

const ROOT = fileURLToPath(new URL('../../..', import.meta.url));
const PROGRAM = process.env.JX_PROGRAM ?? join(ROOT, 'build/dev/tools/jx/jx');
const TIMEOUT_MS = 60000;

/** Calls `check` until it returns a truthy value, which is returned. */
export async function until(condition, check) {
  const end = Date.now() + TIMEOUT_MS;
  for (;;) {
    const result = await check();
    if (result) return result;
    if (Date.now() > end) throw new Error(`timed out: ${condition}`);
    await new Promise((resolve) => setTimeout(resolve, 20));
  }
}

function run(args, environment = {}) {
  const child = spawn(PROGRAM, args,
    { stdio: ['ignore', 'pipe', 'inherit'], env: { ...process.env, ...environment } });
  child.output = '';
  child.stdout.on('data', (piece) => { child.output += piece; });
  child.ended = new Promise((resolve, reject) => {
    child.on('exit', resolve);
    child.on('error', reject);
  });
  return child;
}

/** A running `jx collector`, with its own folder that survives a restart. */
export class Collector {
  static async start() {
    const collector = new Collector();
    collector.folder = await mkdtemp(join(tmpdir(), 'jx-page-'));
    await collector.run('0', '0');
    return collector;
  }

  async run(eventsPort, webPort) {
    const portsFile = join(this.folder, `ports-${Date.now()}`);
    this.child = run(['collector', '--state', join(this.folder, 'state'), '--port', eventsPort,
      '--web-port', webPort, '--ports-file', portsFile]);
    const ports = await until('the collector starts', async () => {
      if (this.child.exitCode !== null) throw new Error('the collector exited at start');
      return readFile(portsFile, 'utf8').then(JSON.parse, () => null);
    });
    Object.assign(this, { eventsPort: ports.events_port, webPort: ports.web_port });
    this.ca = await readFile(ports.ca, 'utf8');
    this.caFile = ports.ca;
    this.page = `http://127.0.0.1:${this.webPort}/`;
  }

  async stop() {
    this.child.kill('SIGTERM');
    await this.child.ended;
  }

  /** Starts again on the same ports and the same folder. */
  async startAgain() {
    await this.run(String(this.eventsPort), String(this.webPort));
  }

  async remove() {
    if (this.child.exitCode === null) await this.stop();
    await rm(this.folder, { recursive: true });
  }

  async get(path) {
    const response = await fetch(new URL(path, this.page));
    if (!response.ok) throw new Error(`${path}: ${response.status} ${await response.text()}`);
    return response.json();
  }

  async post(path, body, type = 'application/json') {
    const response = await fetch(new URL(path, this.page),
      { method: 'POST', headers: { 'Content-Type': type }, body });
    if (!response.ok) throw new Error(`${path}: ${response.status} ${await response.text()}`);
    return response.json();
  }
}

/** A running `jx demo` that has printed its results; its web UI stays available. */
export class Demo {
  static async start() {
    const demo = new Demo();
    demo.folder = await mkdtemp(join(tmpdir(), 'jx-page-'));
    demo.child = run(['demo'], { TMPDIR: demo.folder });
    await until('the demo is complete', () => {
      if (demo.child.exitCode !== null) throw new Error(`the demo exited: ${demo.child.output}`);
      return demo.child.output.includes('Ctrl-C');
    });
    [demo.page] = demo.child.output.match(/http:\/\/localhost:\d+\//);
    return demo;
  }

  async remove() {
    this.child.kill('SIGINT');
    await this.child.ended;
    await rm(this.folder, { recursive: true });
  }
}
