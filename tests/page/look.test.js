// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import assert from 'node:assert/strict';
import { mkdir } from 'node:fs/promises';
import { join } from 'node:path';
import { after, before, test } from 'node:test';

import { launch, openPage, overflowOf } from './support/browser.js';
import { contrastsOf } from './support/contrast.js';
import { Demo, until } from './support/program.js';

const SCREENSHOTS = process.env.JX_SCREENSHOTS;
const AA = 4.5;
// Smaller than the test window, so that screenshots are readable in the documentation.
const SCREENSHOT_SIZES = {
  list: { width: 1090, height: 540 },
  detail: { width: 1090, height: 540 },
  session: { width: 1280, height: 440 },
};
const PHONE = { width: 360, height: 740 };
const PHONE_SCREENSHOTS = { list: 'light', detail: 'dark', session: 'light' };

let demo;
let browser;
let invalidPurchase;

before(async () => {
  demo = await Demo.start();
  browser = await launch();
  const response = await fetch(`${demo.page}api/events?name=purchase&good=false&view=row`);
  invalidPurchase = (await response.json()).events[0].id;
});
after(async () => {
  await browser.close();
  await demo.remove();
});

/** The URL fragment of each view, and an element that is present when it is rendered. */
const views = () => ({
  list: ['', '.space .row .name'],
  detail: [`#event=${invalidPurchase}`, '.tree .missing'],
  session: ['#view=sessions&session=evening-1', '.mark-point'],
});

async function inView(name, options, use) {
  const [hash, rendered] = views()[name];
  const page = await openPage(browser, demo.page + hash, options);
  try {
    await page.locator(rendered).first().waitFor();
    await page.locator('.minute-chart').waitFor();
    await use(page);
  } finally {
    await page.context().close();
  }
}

async function takeScreenshot(page, name) {
  if (!SCREENSHOTS) return;
  await mkdir(SCREENSHOTS, { recursive: true });
  await page.screenshot({ path: join(SCREENSHOTS, `inspector-${name}.png`) });
}

const TEXTS = {
  list: ['h1', '#connection', '.counter dt', '.counter.good dd', '.counter.bad dd',
    '.minutes .caption', '.row.head .name', '.row .name', '.row .line', '.row .time',
    '.row .session', '.row .verdict', '.mark.error', '.actions button', '.views a',
    '.filters select'],
  detail: ['#detail h2', '.badge', '.facts span', '.reasons .path', '.reasons .reason',
    '.tabs button', '.tree .key', '.tree .value', '.tree .preview', '.tree .missing .reason',
    '#detail button'],
  session: ['.entry-title', '.entry-facts', '.stage-head h2', '.lane-label', '.readout', '.hint',
    '.timeline .axis text', '.timeline .group-title', '.timeline .break-label'],
};

for (const colorScheme of ['light', 'dark']) {
  for (const name of ['list', 'detail', 'session']) {
    test(`${name}, ${colorScheme}: the contrast of text is at least ${AA} to 1`, () =>
      inView(name, { colorScheme }, async (page) => {
        const found = await contrastsOf(page, TEXTS[name]);
        for (const [selector, contrast] of Object.entries(found)) {
          assert.ok(contrast !== null, `${selector} is not on the page`);
          assert.ok(contrast >= AA, `${selector}: ${contrast.toFixed(2)}`);
        }
        await page.setViewportSize(SCREENSHOT_SIZES[name]);
        await takeScreenshot(page, `${name}-${colorScheme}`);
      }));

    test(`${name}, ${colorScheme}: fits the width of a phone`, () =>
      inView(name, { colorScheme, ...PHONE }, async (page) => {
        assert.equal(await overflowOf(page), 0);
        const wide = await page.evaluate(() => [...document.querySelectorAll('body *')]
          .filter((node) => !node.closest('.timeline-scroll, .raw') &&
            node.getBoundingClientRect().right > innerWidth + 0.5)
          .map((node) => `${node.tagName}.${node.className}`));
        assert.deepEqual(wide, []);
        const isShown = PHONE_SCREENSHOTS[name] === colorScheme;
        if (isShown) await takeScreenshot(page, `phone-${name}-${colorScheme}`);
      }));
  }
}

test('Every control has an accessible name', () => inView('detail', {}, async (page) => {
  const unnamed = await page.evaluate(() =>
    [...document.querySelectorAll('button, a, input, select, summary, [role=button]')]
      .filter((node) => !(node.getAttribute('aria-label') ?? node.textContent).trim())
      .map((node) => node.outerHTML));
  assert.deepEqual(unnamed, []);
}));

test('Shows a focus outline on every control', () => inView('list', {}, async (page) => {
  const seen = new Set();
  await until('the focus reaches the list', async () => {
    await page.keyboard.press('Tab');
    const focus = await page.evaluate(() => {
      const node = document.activeElement;
      const style = getComputedStyle(node);
      return { id: node.id || node.textContent, outline: style.outlineStyle };
    });
    if (focus.id !== '' && !seen.has('list')) {
      assert.notEqual(focus.outline, 'none', `${focus.id} has no focus outline`);
    }
    seen.add(focus.id);
    return seen.has('list');
  });
  for (const id of ['pause', 'reset', 'help', 'view-sessions', 'filter-text', 'filter-name']) {
    assert.ok(seen.has(id), `${id} can be reached with Tab`);
  }
}));
