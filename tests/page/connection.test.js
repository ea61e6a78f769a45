// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launch, namesIn, openPage, overflowOf } from './support/browser.js';
import { body, search, Sender } from './support/events.js';
import { Collector, until } from './support/program.js';

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

async function send(text) {
  const sender = new Sender(collector);
  const status = await sender.send(text);
  sender.close();
  return status;
}

const shows = (names) =>
  until(`the list shows ${names}`, async () => String(await namesIn(page)) === String(names));

test('Reset asks for confirmation, then deletes all events', async () => {
  await send(search('one'));
  await send(search('two'));
  await shows(['search', 'search']);
  await page.click('#reset');
  assert.match(await page.locator('dialog').innerText(), /2 events will be permanently deleted/);
  await page.getByRole('button', { name: 'Cancel' }).click();
  assert.equal((await collector.get('/api/summary')).events, 2);
  await page.click('#reset');
  await page.getByRole('button', { name: 'Delete all' }).click();
  await page.locator('.first-steps').waitFor();
  assert.equal((await collector.get('/api/summary')).events, 0);
});

test('Shows since when the connection is lost, and reconnects automatically', async () => {
  await send(search('kept'));
  await shows(['search']);
  await collector.stop();
  const away = page.locator('.notice.away');
  await away.waitFor();
  assert.match(await away.innerText(), /No connection to the collector since \d\d:\d\d:\d\d/);
  assert.equal(await page.locator('#connection').innerText(), 'offline');
  assert.equal(await overflowOf(page), 0);
  assert.deepEqual(await namesIn(page), ['search']);
  await collector.startAgain();
  await away.waitFor({ state: 'hidden' });
  await send(body('login', {}));
  await shows(['login', 'search']);
});

test('Retry now does not wait for the retry delay', async () => {
  await collector.stop();
  await page.locator('.notice.away').waitFor();
  await collector.startAgain();
  await page.getByRole('button', { name: 'Retry now' }).click();
  await page.locator('.notice.away').waitFor({ state: 'hidden' });
});

test('Shows active faults in a notice that can clear them', async () => {
  await collector.post('/api/faults', JSON.stringify({ next: 0, status: 429, retry_after: '1' }));
  const armed = page.locator('.notice.armed');
  await armed.waitFor();
  assert.match(await armed.innerText(), /every request with status 429 and Retry-After 1/);
  assert.equal(await send(search('refused')), 429);
  await page.click('#clear-faults');
  await armed.waitFor({ state: 'hidden' });
  assert.equal(await send(search('taken')), 200);
});

test('Export links apply the filters', async () => {
  await collector.post('/api/reset', '{}');
  await send(search('one'));
  await send(body('login', {}));
  await shows(['login', 'search']);
  await page.goto(`${collector.page}#name=login`);
  await shows(['login']);
  const lines = await page.evaluate(async () =>
    (await (await fetch(document.getElementById('export-ndjson').href)).text()).trim().split('\n'));
  assert.equal(lines.length, 1);
  assert.match(lines[0], /login/);
  const archive = await page.evaluate(async () =>
    (await fetch(document.getElementById('export-har').href)).json());
  assert.equal(archive.log.entries.length, 1);
});
