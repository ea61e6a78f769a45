// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { spawn } from 'node:child_process';
import { mkdtemp, readFile, rm } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

const ROOT = fileURLToPath(new URL('../../..', import.meta.url));
const PROGRAM = process.env.JX_PROGRAM ?? join(ROOT, 'build/dev/tools/jx/jx');
const PATIENCE_MS = 60000;

/** Asks until the answer is truthy. */
export async function until(what, ask) {
  const end = Date.now() + PATIENCE_MS;
  for (;;) {
    const answer = await ask();
    if (answer) return answer;
    if (Date.now() > end) throw new Error(`waited in vain: ${what}`);
    await new Promise((resolve) => setTimeout(resolve, 20));
  }
}

function run(args, environment = {}) {
  const child = spawn(PROGRAM, args,
    { stdio: ['ignore', 'pipe', 'inherit'], env: { ...process.env, ...environment } });
  child.said = '';
  child.stdout.on('data', (piece) => { child.said += piece; });
  child.ended = new Promise((resolve, reject) => {
    child.on('exit', resolve);
    child.on('error', reject);
  });
  return child;
}

/** A running `jx collector`, with a folder of its own that outlives a restart. */
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
      if (this.child.exitCode !== null) throw new Error('the collector ended at once');
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
    const answer = await fetch(new URL(path, this.page));
    if (!answer.ok) throw new Error(`${path}: ${answer.status} ${await answer.text()}`);
    return answer.json();
  }

  async post(path, body, type = 'application/json') {
    const answer = await fetch(new URL(path, this.page),
      { method: 'POST', headers: { 'Content-Type': type }, body });
    if (!answer.ok) throw new Error(`${path}: ${answer.status} ${await answer.text()}`);
    return answer.json();
  }
}

/** A running `jx demo` that has told everything; its page stays open. */
export class Demo {
  static async start() {
    const demo = new Demo();
    demo.folder = await mkdtemp(join(tmpdir(), 'jx-page-'));
    demo.child = run(['demo'], { TMPDIR: demo.folder });
    await until('the demo is told', () => {
      if (demo.child.exitCode !== null) throw new Error(`the demo ended: ${demo.child.said}`);
      return demo.child.said.includes('Ctrl-C ends');
    });
    [demo.page] = demo.child.said.match(/http:\/\/localhost:\d+\//);
    return demo;
  }

  async remove() {
    this.child.kill('SIGINT');
    await this.child.ended;
    await rm(this.folder, { recursive: true });
  }
}
