// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launch, openPage, rowsOf } from './support/browser.js';
import { body, search, Sender } from './support/events.js';
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

/** Resets the collector, sends bodies, and opens the last event. */
async function withEvents(bodies, use) {
  await collector.post('/api/reset', '{}');
  for (const text of bodies) await sender.send(text);
  const { events } = await collector.get('/api/events?view=row&limit=1');
  const page = await openPage(browser, `${collector.page}#event=${events[0].id}`,
    { permissions: ['clipboard-read', 'clipboard-write'] });
  try {
    await page.locator('#detail h2').waitFor();
    await use(page);
    assert.deepEqual(page.complaints, []);
  } finally {
    await page.context().close();
  }
}

const keyAt = (page, path) => page.locator(`#panel [data-path=${JSON.stringify(path)}]`);

const ITEM = {
  id: '1', quantity: 6, product: { id: 'p-1', name: 'LANTERN', price: 3.39, colors: [] },
};
const PURCHASE = {
  currency: 'GBP', id: 'A-1', value: 20.34, revenue: 20.34, type: 'shop',
  payment_method: 'card', status: 'confirmed', items: [ITEM],
};

test('Shows the body as a tree, with context and user collapsed initially', () =>
  withEvents([body('purchase', PURCHASE)], async (page) => {
    const price = keyAt(page, 'items[0].product.price');
    await price.waitFor();
    assert.equal(await price.locator('.key').innerText(), 'price');
    assert.equal(await price.locator('.value').innerText(), '3.39');
    await page.locator('#panel summary', { hasText: 'items' }).click();
    await price.waitFor({ state: 'hidden' });
    assert.equal(await keyAt(page, 'context.device.os.name').count(), 0);
    await page.getByRole('button', { name: 'Expand all' }).click();
    await keyAt(page, 'context.device.os.name').waitFor();
    await page.getByRole('button', { name: 'Collapse all', exact: true }).click();
    await price.waitFor({ state: 'hidden' });
  }));

test('Shows numbers exactly as received, and a duplicate key twice', () => {
  const text = body('quiz', {}).replace('{', '{"exact":1.10,"large":12345678901234567890,' +
    '"small":0.000000000000000000001,"power":1E+2,"twice":1,"twice":2,');
  return withEvents([text], async (page) => {
    const shown = { exact: '1.10', large: '12345678901234567890',
      small: '0.000000000000000000001', power: '1E+2' };
    for (const [key, digits] of Object.entries(shown)) {
      assert.equal(await keyAt(page, key).locator('.value').innerText(), digits);
    }
    assert.deepEqual(await keyAt(page, 'twice').locator('.value').allInnerTexts(), ['1', '2']);
  });
});

test('Shows each diagnostic next to its key, and in a list that links to it', () => {
  const { status, ...incomplete } = PURCHASE;
  const wrong = { ...incomplete, revenue: 'twenty', items: [{ ...ITEM, quantity: '6' }] };
  return withEvents([body('purchase', wrong)], async (page) => {
    assert.equal(await page.locator('.badge').innerText(), '▲ invalid');
    const listed = await page.locator('.reasons li.error .path').allInnerTexts();
    assert.deepEqual(listed.sort(), ['items[0].quantity', 'revenue', 'status']);
    for (const key of listed) {
      assert.equal(await keyAt(page, key).locator('> .reason.error').count(), 1, key);
    }
    assert.equal(await keyAt(page, 'status').locator('.value').innerText(), 'missing');
    await page.getByRole('button', { name: 'Collapse all', exact: true }).click();
    await page.locator('.reasons .path', { hasText: 'items[0].quantity' }).click();
    await keyAt(page, 'items[0].quantity').waitFor({ state: 'visible' });
  });
});

test('Shows differences to the previous event, with IDs and times collapsed', () =>
  withEvents([
    body('quiz', { page_name: 'quiz', answer: 'A', old: true }, { atMs: 1767225600000 }),
    body('login', {}),
    body('quiz', { page_name: 'quiz', answer: 'B', added: [1] }, { atMs: 1767225601000 }),
  ], async (page) => {
    await page.getByRole('tab', { name: 'Differences' }).click();
    const changes = page.locator('.panel .changes').first().locator('.change');
    await changes.first().waitFor();
    const shown = await changes.evaluateAll((nodes) => nodes.map((node) =>
      [node.className, node.querySelector('.key').textContent,
        ...[...node.querySelectorAll('.value')].map((value) => value.textContent)].join(' ')));
    assert.deepEqual(shown, ['change changed answer "A" "B"', 'change added added[0] 1',
      'change removed old true']);
    const folded = page.locator('.volatile');
    assert.equal(await folded.evaluate((node) => node.open), false);
    await folded.locator('summary').click();
    const volatile = await folded.locator('.key').allInnerTexts();
    assert.deepEqual(volatile, ['context.event_id', 'context.event_timestamp']);
  }));

test('A valid event without warnings shows no list of diagnostics', () =>
  withEvents([search('x')], async (page) => {
    await page.locator('.tree').waitFor();
    assert.equal(await page.locator('.reasons').count(), 0);
    assert.doesNotMatch(await page.locator('#detail').innerText(), /null|undefined/);
  }));

test('Reports that there is no previous event of the same name', () =>
  withEvents([body('quiz', {})], async (page) => {
    await page.getByRole('tab', { name: 'Differences' }).click();
    await page.getByText('No previous event with this name').waitFor();
  }));

test('Shows the query and headers of the request', () =>
  withEvents([search('x')], async (page) => {
    await page.getByRole('tab', { name: 'Request' }).click();
    const cell = (name) => page.locator('.pairs tr', { has: page.locator(`th:text-is("${name}")`) })
      .locator('td');
    assert.equal(await cell('jx_s').innerText(), '7');
    assert.equal(await cell('token').innerText(), 'page-tests');
    const headers = await page.locator('.pairs').last().innerText();
    assert.match(headers, /content-type\s+application\/json/i);
  }));

test('Shows and copies the raw body as received', () => {
  const text = body('quiz', {}).replace('{', '{ "spaced" :   1.50 ,');
  return withEvents([text], async (page) => {
    await page.getByRole('tab', { name: 'Raw' }).click();
    assert.equal(await page.locator('.panel .raw').textContent(), text);
    await page.click('#copy');
    await page.getByText('Copied').waitFor();
    assert.equal(await page.evaluate(() => navigator.clipboard.readText()), text);
  });
});

test('Shows an invalid JSON body as text, with the error', () =>
  withEvents(['{"event_name": "broken'], async (page) => {
    await page.locator('.panel .reason.error', { hasText: 'Invalid JSON' }).waitFor();
    assert.equal(await page.locator('.panel .raw').textContent(), '{"event_name": "broken');
  }));

test('Shows markup from a device as text and does not run its scripts', () => {
  const image = '<img src=x onerror="globalThis.isBroken=1">';
  const script = '<script>globalThis.isBroken=1</script>';
  return withEvents([
    body(image, { page_name: script, [image]: script, video_session_id: script },
      { session: image }),
    body(image, { page_name: image, [script]: image, video_session_id: script },
      { session: image }),
  ], async (page) => {
    assert.equal(await page.locator('#detail h2').innerText(), image);
    assert.equal(await keyAt(page, 'page_name').locator('.value').innerText(),
      JSON.stringify(image));
    for (const name of ['Differences', 'Request', 'Raw']) {
      await page.getByRole('tab', { name }).click();
    }
    await rowsOf(page).first().locator('.name', { hasText: '<img' }).waitFor();
    await page.goto(`${collector.page}#view=sessions`);
    await page.locator('.mark-point').first().waitFor();
    await page.locator('.mark-point').first().hover();
    await page.locator('.readout strong', { hasText: '<img' }).waitFor();
    assert.equal(await page.locator('main img, main script').count(), 0);
    assert.equal(await page.evaluate(() => globalThis.isBroken), undefined);
  });
});

test('The content security policy blocks all scripts but the files of the page', async () => {
  const page = await openPage(browser, collector.page);
  try {
    const refused = await page.evaluate(async () => {
      const policies = [];
      document.addEventListener('securitypolicyviolation',
        (event) => policies.push(event.effectiveDirective));
      const script = document.createElement('script');
      script.textContent = 'globalThis.isBroken = 1';
      document.body.append(script);
      const holder = document.createElement('div');
      holder.innerHTML = '<img src=x onerror="globalThis.isBroken=1">';
      document.body.append(holder);
      let evaluated = 'refused';
      try {
        // Not a direct eval: the test harness is exempt from the policy there.
        evaluated = globalThis.setTimeout('globalThis.isBroken = 1', 0);
      } catch {
        evaluated = 'refused';
      }
      await new Promise((resolve) => setTimeout(resolve, 300));
      return { isBroken: globalThis.isBroken, policies, evaluated };
    });
    assert.equal(refused.isBroken, undefined);
    assert.ok(refused.policies.includes('script-src-elem'), String(refused.policies));
    assert.ok(refused.policies.includes('script-src-attr'), String(refused.policies));
    const response = await fetch(collector.page);
    const policy = response.headers.get('content-security-policy');
    for (const part of ["default-src 'none'", "script-src 'self'", "style-src 'self'",
      "connect-src 'self'", "base-uri 'none'", "form-action 'none'", "frame-ancestors 'none'"]) {
      assert.ok(policy.includes(part), `${part} in ${policy}`);
    }
    assert.doesNotMatch(policy, /unsafe/);
  } finally {
    await page.context().close();
  }
});

test('Opens a body with many keys at once and shows it in pages', () => {
  const many = Object.fromEntries(Array.from({ length: 5000 }, (_, index) => [`k${index}`, index]));
  return withEvents([body('quiz', { many })], async (page) => {
    await page.locator('#panel summary', { hasText: 'many' }).click();
    await keyAt(page, 'many.k0').waitFor();
    assert.equal(await page.locator('#panel li').count() < 300, true);
    await page.getByText('Show more').click();
    await until('the next page is shown',
      async () => await keyAt(page, 'many.k399').count() === 1);
  });
});
