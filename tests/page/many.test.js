// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import assert from 'node:assert/strict';
import { randomUUID } from 'node:crypto';
import { after, before, test } from 'node:test';

import { launch, openPage, rowsOf } from './support/browser.js';
import { search, Sender } from './support/events.js';
import { Collector, until } from './support/program.js';

const EVENTS = 100000;
const BATCH = 5000;

let collector;
let browser;
let page;

/** Imports copies of one exported event. */
async function importMany() {
  const id = 'SEED-0000-4000-8000';
  const sender = new Sender(collector);
  await sender.send(search('seed', { id }));
  sender.close();
  const response = await fetch(new URL('/api/export.ndjson', collector.page));
  const line = (await response.text()).trim();
  for (let imports = 0; imports < EVENTS; imports += BATCH) {
    const batch = Array.from({ length: BATCH }, () => line.replaceAll(id, randomUUID()));
    const { imported } =
      await collector.post('/api/import', batch.join('\n'), 'application/x-ndjson');
    assert.equal(imported, BATCH);
  }
}

before(async () => {
  collector = await Collector.start();
  await importMany();
  browser = await launch();
  page = await openPage(browser, collector.page);
  await rowsOf(page).first().waitFor();
});
after(async () => {
  await browser.close();
  await collector.remove();
});

const MOST_ROWS = 80;

test('Only visible rows are in the document while scrolling', async (t) => {
  // The list loads more rows near its end, so the end is reached in several steps.
  const scroll = () => page.evaluate(() => {
    const list = document.getElementById('list');
    list.scrollTop = list.scrollHeight;
    return document.querySelectorAll('.space .row').length;
  });
  const kept = (await collector.get('/api/summary')).events;
  let most = 0;
  const begun = Date.now();
  await until('the oldest row is reached', async () => {
    most = Math.max(most, await scroll());
    return page.evaluate((count) =>
      document.getElementById('list').getAttribute('aria-rowcount') === String(count), kept);
  });
  t.diagnostic(`from the newest to the oldest of ${kept} events: ${Date.now() - begun} ms, ` +
    `at most ${most} rows in the document`);
  assert.ok(most > 10 && most <= MOST_ROWS, `${most} rows`);
});

test('Scrolls and shows new events with all rows loaded', async (t) => {
  const list = page.locator('#list');
  await list.focus();
  await page.keyboard.press('Home');
  await page.keyboard.press('ArrowDown');
  await page.locator('.row.active[aria-rowindex="2"]').waitFor();
  const frames = await page.evaluate(async () => {
    const scroller = document.getElementById('list');
    const lasted = [];
    let last = performance.now();
    for (let step = 0; step < 120; step += 1) {
      scroller.scrollTop = (step / 120) * scroller.scrollHeight;
      await new Promise((resolve) => requestAnimationFrame(resolve));
      lasted.push(performance.now() - last);
      last = performance.now();
    }
    scroller.scrollTop = 0;
    return lasted.sort((a, b) => a - b);
  });
  t.diagnostic(`120 jumps over the whole list: median ${frames[60].toFixed(1)} ms, ` +
    `longest ${frames.at(-1).toFixed(1)} ms a frame`);
  const sender = new Sender(collector);
  await sender.send(search('after all of them'));
  sender.close();
  await page.locator('.row .line', { hasText: 'after all of them' }).waitFor();
  assert.ok(await rowsOf(page).count() <= MOST_ROWS);
});
