// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import assert from 'node:assert/strict';
import { after, before, beforeEach, test } from 'node:test';

import { launch, namesIn, openPage, rowsOf } from './support/browser.js';
import { body, search, Sender, SESSION } from './support/events.js';
import { Collector, until } from './support/program.js';

let collector;
let sender;
let browser;

before(async () => {
  collector = await Collector.start();
  sender = new Sender(collector);
  browser = await launch();
});
after(async () => {
  await browser.close();
  sender.close();
  await collector.remove();
});
beforeEach(() => collector.post('/api/reset', '{}'));

async function withPage(hash, use) {
  const page = await openPage(browser, collector.page + hash);
  try {
    await use(page);
    assert.deepEqual(page.complaints, []);
  } finally {
    await page.context().close();
  }
}

const shows = (page, names) =>
  until(`the list shows ${names}`, async () => String(await namesIn(page)) === String(names));

test('Shows an event when it arrives, without a reload', () => withPage('', async (page) => {
  await page.evaluate(() => { globalThis.isSamePage = true; });
  await sender.send(search('lighthouse'));
  await shows(page, ['search']);
  await sender.send(body('login', { method: 'pin' }));
  await shows(page, ['login', 'search']);
  assert.equal(await page.evaluate(() => globalThis.isSamePage), true);
}));

test('An empty collector shows how to connect an application', () => withPage('', async (page) => {
  const steps = page.locator('.first-steps');
  await steps.waitFor();
  const text = await steps.innerText();
  assert.match(text, new RegExp(`collectionHost = "https://\\S+:${collector.eventsPort}"`));
  assert.ok(text.includes(`caFile = ${JSON.stringify(collector.caFile)}`), text);
  await sender.send(search('x'));
  await steps.waitFor({ state: 'hidden' });
}));

test('Each filter shows matching events, and its chip removes it', async () => {
  await sender.send(search('lighthouse'));
  await sender.send(body('search', {}, { session: 'OTHER-SESSION' }));
  await sender.send(body('video_start', {
    video_session_id: 'v-1', cursor_position: 0, total_length: 60, content_asset_id: ['a'],
    full_screen: false, ad_enabled: false, livestream: false, content_pod_id: [],
    ad_asset_id: [], ad_pod_id: [],
  }));
  const all = ['video_start', 'search', 'search'];
  await withPage('', async (page) => {
    await shows(page, all);
    const trials = [
      ['name', () => page.selectOption('#filter-name', 'video_start'), ['video_start']],
      ['class', () => page.selectOption('#filter-class', 'JXSearchEvent'), ['search', 'search']],
      ['good', () => page.click('[data-good="false"]'), ['search']],
      ['good', () => page.click('[data-good="true"]'), ['video_start', 'search']],
      ['session', () => page.selectOption('#filter-session', 'OTHER-SESSION'), ['search']],
      ['session', () => page.selectOption('#filter-session', 'v-1'), ['video_start']],
      ['text', () => page.fill('#filter-text', 'LIGHT'), ['search']],
    ];
    for (const [key, act, names] of trials) {
      await until(`${key} is offered`, () => act().then(() => true, () => false));
      await shows(page, names);
      assert.match(new URL(page.url()).hash, new RegExp(`${key}=`));
      await page.click(`.chip[data-filter="${key}"]`);
      await shows(page, all);
    }
  });
});

test('A URL with filters opens the filtered list', async () => {
  await sender.send(search('lighthouse'));
  await sender.send(search('harbour'));
  await sender.send(body('login', {}));
  await withPage('#name=search&text=harbour', async (page) => {
    await shows(page, ['search']);
    assert.equal(await page.inputValue('#filter-text'), 'harbour');
    await page.click('#clear-filters');
    await shows(page, ['login', 'search', 'search']);
  });
});

test('Applies all filters, including text, to new events', () =>
  withPage('#text=harbour', async (page) => {
    await page.locator('.first-steps').waitFor();
    await sender.send(search('lighthouse'));
    await sender.send(search('harbour lights'));
    await shows(page, ['search']);
    await page.click('.chip[data-filter="text"]');
    await page.click('[data-good="false"]');
    await sender.send(search('valid, so it does not match'));
    await sender.send(body('search', {}));
    await shows(page, ['search']);
    assert.equal(await rowsOf(page).first().locator('.mark.error').innerText(), '1 error');
  }));

test('Counts new events while paused and shows them on resume', () => withPage('', async (page) => {
  await sender.send(search('before'));
  await shows(page, ['search']);
  await page.keyboard.press('p');
  await sender.send(body('login', {}));
  await sender.send(body('sign_up', {}));
  await page.locator('#pause', { hasText: 'Resume (2 new)' }).waitFor();
  assert.deepEqual(await namesIn(page), ['search']);
  await page.click('#pause');
  await shows(page, ['sign_up', 'login', 'search']);
}));

test('A repeated event is one row with a counter', () => withPage('', async (page) => {
  const text = search('twice', { id: 'REPEATED-1' });
  await sender.send(text);
  await shows(page, ['search']);
  await sender.send(text);
  await rowsOf(page).locator('.mark', { hasText: '×2' }).waitFor();
  assert.deepEqual(await namesIn(page), ['search']);
}));

test('Updates the counters and the chart of the last hour', () => withPage('', async (page) => {
  await sender.send(search('good'));
  await sender.send(body('search', {}));
  await sender.send(body('search', {}));
  await page.locator('.counter.bad dd', { hasText: '2' }).waitFor();
  assert.equal(await page.locator('.counter.good dd').innerText(), '1');
  const label = await page.locator('.minute-chart').getAttribute('aria-label');
  assert.match(label, /1 valid, 2 invalid/);
  assert.ok(await page.locator('.minute-chart rect.bad').count() > 0);
}));

test('Supports keyboard navigation', async () => {
  for (const term of ['alpha', 'beta', 'gamma']) await sender.send(search(term));
  await withPage('', async (page) => {
    await shows(page, ['search', 'search', 'search']);
    const active = () => page.locator('.row.active .line').innerText();
    await page.keyboard.press('ArrowDown');
    assert.match(await active(), /gamma/);
    await page.keyboard.press('ArrowDown');
    await until('the active row moved', async () => /beta/.test(await active()));
    await page.keyboard.press('ArrowUp');
    await until('the active row moved back', async () => /gamma/.test(await active()));
    await page.keyboard.press('Enter');
    await page.locator('#detail h2', { hasText: 'search' }).waitFor();
    await page.keyboard.press('Escape');
    await page.locator('#detail').waitFor({ state: 'hidden' });
    await page.keyboard.press('/');
    assert.equal(await page.evaluate(() => document.activeElement.id), 'filter-text');
    await page.keyboard.type('beta');
    await until('the text filters', async () => (await namesIn(page)).length === 1);
    await page.keyboard.press('Escape');
    await shows(page, ['search', 'search', 'search']);
    await page.evaluate(() => document.activeElement.blur());
    await page.keyboard.press('?');
    assert.match(await page.locator('dialog').innerText(), /pause, resume/);
    await page.keyboard.press('Escape');
    await page.locator('dialog').waitFor({ state: 'detached' });
    await page.keyboard.press('s');
    await page.locator('.stage-head h2', { hasText: SESSION.slice(0, 8) }).waitFor();
  });
});

test('The back button of the browser closes an open event', async () => {
  await sender.send(search('one'));
  await withPage('', async (page) => {
    await rowsOf(page).first().click();
    await page.locator('#detail h2').waitFor();
    await page.goBack();
    await page.locator('#detail').waitFor({ state: 'hidden' });
  });
});
