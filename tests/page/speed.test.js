// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launch, openPage } from './support/browser.js';
import { body, Sender } from './support/events.js';
import { Collector } from './support/program.js';

// Measures and reports. The tests only assert that every event arrived: a time limit would fail on
// a busy machine.

const LATENCY_EVENTS = 300;
const THROUGHPUT_EVENTS = 4000;
const CONNECTIONS = 8;

let collector;
let browser;
let page;

before(async () => {
  collector = await Collector.start();
  browser = await launch();
  page = await openPage(browser, collector.page);
});
after(async () => {
  await browser.close();
  await collector.remove();
});

const at = (sorted, part) => sorted[Math.min(sorted.length - 1, Math.floor(sorted.length * part))];

test(`Measures the latency of ${LATENCY_EVENTS} events from request to visible row`, async (t) => {
  await page.evaluate(() => {
    // The page and this process use the same clock.
    const seen = new Map();
    globalThis.seenRows = seen;
    new MutationObserver(() => {
      const now = performance.timeOrigin + performance.now();
      for (const name of document.querySelectorAll('.space .row .name')) {
        if (!seen.has(name.textContent)) seen.set(name.textContent, now);
      }
    }).observe(document.querySelector('.space'),
      { subtree: true, childList: true, characterData: true });
  });
  const sender = new Sender(collector);
  const sent = new Map();
  for (let number = 0; number < LATENCY_EVENTS; number += 1) {
    const name = `n${number}`;
    sent.set(name, performance.timeOrigin + performance.now());
    assert.equal(await sender.send(body(name)), 200);
    await page.waitForFunction((wanted) => globalThis.seenRows.has(wanted), name);
  }
  sender.close();
  const seen = await page.evaluate(() => [...globalThis.seenRows]);
  const delays = seen.filter(([name]) => sent.has(name))
    .map(([name, time]) => time - sent.get(name)).sort((a, b) => a - b);
  assert.equal(delays.length, LATENCY_EVENTS);
  t.diagnostic(`latency from request to visible row over ${delays.length} events: ` +
    `median ${at(delays, 0.5).toFixed(1)} ms, 99th percentile ${at(delays, 0.99).toFixed(1)} ms`);
});

test('Measures the throughput over HTTPS while the page is open', async (t) => {
  await collector.post('/api/reset', '{}');
  const sender = new Sender(collector, CONNECTIONS);
  const bodies = Array.from({ length: THROUGHPUT_EVENTS }, (_, number) => body(`m${number % 20}`));
  const begun = performance.now();
  await Promise.all(Array.from({ length: CONNECTIONS }, async (_, lane) => {
    for (let number = lane; number < THROUGHPUT_EVENTS; number += CONNECTIONS) {
      assert.equal(await sender.send(bodies[number]), 200);
    }
  }));
  const seconds = (performance.now() - begun) / 1000;
  sender.close();
  await page.locator('.counter dd', { hasText: '4,000' }).first().waitFor();
  const shown = performance.now();
  t.diagnostic(`${THROUGHPUT_EVENTS} events over ${CONNECTIONS} connections: ` +
    `${Math.round(THROUGHPUT_EVENTS / seconds)} per second; all counted on the page ` +
    `${Math.round(shown - begun - 1000 * seconds)} ms later`);
});
