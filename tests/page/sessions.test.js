// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launch, openPage } from './support/browser.js';
import { Demo, until } from './support/program.js';

let demo;
let browser;
let page;

before(async () => {
  demo = await Demo.start();
  browser = await launch();
  page = await openPage(browser, `${demo.page}#view=sessions&session=evening-1`);
  await page.locator('.mark-point').first().waitFor();
});
after(async () => {
  await browser.close();
  await demo.remove();
});

const marksIn = (kind) => page.locator(`.mark-point[data-kind="${kind}"]`);

// Copied from the script of the demo.
const FILM = ['video_start', 'video_ad_break_start', 'video_ad_start', 'video_ad_playing',
  'video_ad_complete', 'video_ad_break_complete', 'video_content_start', 'video_buffer_start',
  'video_buffer_complete', 'video_subtitle_on', 'video_seek_start', 'video_seek_complete',
  'video_content_quarter_reached', 'video_ad_break_start', 'video_ad_start', 'video_ad_skip',
  'video_ad_break_complete', 'video_content_quarter_reached', 'video_pause', 'video_resume',
  'video_volume', 'video_content_quarter_reached', 'video_content_complete', 'video_complete'];

test('Shows a mark for each event of the film, from left to right', async () => {
  const marks = await page.locator('.mark-point').evaluateAll((nodes) => nodes.map((node) => ({
    name: node.dataset.name,
    x: node.getBoundingClientRect().x,
  })));
  assert.deepEqual(marks.sort((a, b) => a.x - b.x).map((mark) => mark.name), FILM);
});

test('Shows playing, pause, buffering and seeking as segments with durations', async () => {
  const titles = (kind) => page.locator(`.segment.${kind} title`).allTextContents();
  assert.deepEqual(await titles('buffering'), ['buffering 3.8 s']);
  assert.deepEqual(await titles('seeking'), ['seeking 2.1 s']);
  assert.deepEqual(await titles('paused'), ['paused 32 min']);
  assert.deepEqual(await titles('pre-roll'), ['pre-roll 20 s']);
  assert.deepEqual(await titles('mid-roll'), ['mid-roll 6.5 s']);
  assert.equal((await titles('playing')).length, 4);
});

test('Shows the position of each quarter, and ? for an invalid position', async () => {
  const labels = await marksIn('quarter').evaluateAll((nodes) =>
    nodes.map((node) => node.getAttribute('aria-label').split(', ').at(-1)));
  assert.deepEqual(labels, ['25%', '50%', '?']);
  assert.equal(await page.locator('.mark-point.bad').count(), 1);
});

test('Marks the new session after half an hour in the background', async () => {
  assert.equal(await page.locator('.session-break').count(), 1);
});

test('Hovering over a mark previews its event, clicking opens it', async () => {
  await marksIn('pause').hover();
  await page.locator('.readout strong', { hasText: 'video_pause' }).waitFor();
  await marksIn('pause').click();
  await page.locator('#detail h2', { hasText: 'video_pause' }).waitFor();
  await page.keyboard.press('Escape');
  await page.locator('#detail').waitFor({ state: 'hidden' });
});

test('The arrow keys move between marks', async () => {
  await page.locator('.mark-point[tabindex="0"]').focus();
  await page.keyboard.press('Home');
  await page.keyboard.press('ArrowRight');
  await page.locator('.readout strong', { hasText: 'video_ad_break_start' }).waitFor();
  await page.keyboard.press('End');
  await page.locator('.readout strong', { hasText: 'video_complete' }).waitFor();
  await page.keyboard.press('Enter');
  await page.locator('#detail h2', { hasText: 'video_complete' }).waitFor();
  await page.keyboard.press('Escape');
});

test('Shows shopping as steps from the list to the purchase', async () => {
  const first = page.locator('.session-list .entry:not(.video)').last();
  await first.click();
  await page.locator('.stair').waitFor();
  const shopping = await marksIn('shop').evaluateAll((nodes) => nodes.map((node) => {
    const { x, y } = node.getBoundingClientRect();
    return { name: node.dataset.name, x, y };
  }));
  const names = shopping.sort((a, b) => a.x - b.x).map((mark) => mark.name);
  assert.deepEqual(names, ['view_item_list', 'select_item', 'view_item', 'add_to_cart',
    'add_to_cart', 'view_cart', 'remove_from_cart', 'begin_checkout', 'add_shipping_info',
    'add_payment_info', 'purchase', 'purchase']);
  assert.ok(shopping[0].y < shopping.at(-1).y, 'the purchase is below the list');
  assert.equal(await page.locator('.mark-point.bad[data-name="purchase"]').count(), 1);
});

test('Shows a session as a list', async () => {
  await page.getByText('Show as list').click();
  await page.locator('.chip[data-filter="session"]').waitFor();
  await until('the list holds the session', async () =>
    (await page.locator('.space .row .name').allInnerTexts()).includes('app_start') ||
    await page.locator('.scroller').evaluate((node) => { node.scrollTop = 1e6; return false; }));
});
