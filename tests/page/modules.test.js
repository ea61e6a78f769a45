// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';

import { launch, openPage } from './support/browser.js';
import { Collector } from './support/program.js';

// Tests of the modules without a user interface, run in the browser.

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

test('JSON reader reports the offset of invalid JSON', async () => {
  const offsets = await page.evaluate(async () => {
    const { readJson } = await import('/json.js');
    const trial = (text) => {
      try {
        readJson(text);
        return null;
      } catch (error) {
        return error.offset;
      }
    };
    return ['{}', ' [1, {"a": null}] ', '', '{', '[1,]', '01', '1.', '{"a":1}x', '"\t"', '"\\x"',
      '{a:1}', '[1 2]'].map(trial);
  });
  assert.deepEqual(offsets, [null, null, 0, 1, 3, 1, 1, 7, 0, 0, 1, 3]);
});

test('JSON reader rejects deep nesting without exhausting the stack', async () => {
  const message = await page.evaluate(async () => {
    const { readJson } = await import('/json.js');
    try {
      return readJson('['.repeat(200000));
    } catch (error) {
      return error.message;
    }
  });
  assert.match(message, /too deeply/);
});

test('JSON reader accepts a string of megabytes', async () => {
  const length = await page.evaluate(async () => {
    const { readJson } = await import('/json.js');
    return readJson(JSON.stringify('x\n'.repeat(4000000))).text.length;
  });
  assert.equal(length, 8000000);
});

test('Event parser accepts chunks of any size', async () => {
  const parsed = await page.evaluate(async () => {
    const { EventParser } = await import('/stream.js');
    const text = ': heartbeat\n\nevent: arrival\nid: 7\ndata: {"a":\ndata: 1}\n\r\n' +
      'data: plain\n\nevent: reset\ndata: {}\r\n\r\n';
    return [1, 3, text.length].map((size) => {
      const events = [];
      const parser = new EventParser(({ type, id, data }) => events.push([type, id, data]));
      for (let place = 0; place < text.length; place += size) {
        parser.push(text.slice(place, place + size));
      }
      return events;
    });
  });
  const wanted = [['arrival', '7', '{"a":\n1}'], ['message', null, 'plain'], ['reset', null, '{}']];
  assert.deepEqual(parsed, [wanted, wanted, wanted]);
});

test('The chart has a bar for each minute of the last hour, the current one last', async () => {
  const { count, last, first, lost } = await page.evaluate(async () => {
    const { barsOf } = await import('/minutes.js');
    const now = 1767225630000;
    const bars = barsOf([
      { minute_ms: 1767225600000, good: 2, bad: 1 },
      { minute_ms: 1767225600000 - 59 * 60000, good: 3, bad: 0 },
      { minute_ms: 1767225600000 - 60 * 60000, good: 9, bad: 9 },
    ], now);
    return { count: bars.length, last: bars.at(-1), first: bars[0],
      lost: bars.filter((bar) => bar.good === 9).length };
  });
  assert.equal(count, 60);
  assert.deepEqual(last, { minuteMs: 1767225600000, good: 2, bad: 1 });
  assert.equal(first.good, 3);
  assert.equal(lost, 0);
});

test('Steps are at least one mark apart, and later steps are further right', async () => {
  const { xs, width } = await page.evaluate(async () => {
    const { positions } = await import('/scale.js');
    return positions([0, 0, 5, 3600000, 3600001], 400);
  });
  assert.equal(xs.length, 5);
  for (let place = 1; place < xs.length; place += 1) assert.ok(xs[place] - xs[place - 1] >= 18);
  assert.ok(xs[3] - xs[2] > 5 * (xs[2] - xs[1]), 'an hour is wider than an instant');
  assert.ok(width >= xs.at(-1));
});

test('A post-roll and an ad outside a break have separate segments', async () => {
  const segments = await page.evaluate(async () => {
    const { groupsOf, stepsOf } = await import('/lanes.js');
    const event = (id, name, adType) => ({
      id, name, received_ms: id, event_timestamp: 1000 * id, good: true, video_session: 'v',
      body: JSON.stringify({ ad_type: adType }),
    });
    const [group] = groupsOf(stepsOf([
      event(1, 'video_ad_start', 'pre-roll'), event(2, 'video_ad_stop', 'pre-roll'),
      event(3, 'video_ad_break_start', 'post-roll'), event(4, 'video_ad_start', 'post-roll'),
      event(5, 'video_ad_complete', 'post-roll'), event(6, 'video_ad_break_complete', 'post-roll'),
    ]));
    return group.lanes[0].segments.map(({ kind, from, to }) => [kind, from, to]);
  });
  assert.deepEqual(segments, [['pre-roll', 0, 1], ['post-roll', 2, 5]]);
});

test('Describes active faults', async () => {
  const descriptions = await page.evaluate(async () => {
    const { describeFaults } = await import('/notices.js');
    return [null, { next: 0 }, { next: 3, status: 503, action: 'answer' },
      { next: 1, action: 'reset', delay_ms: 500 }, { next: 0, action: 'hang' },
      { next: 0, delay_ms: 2000 }].map(describeFaults);
  });
  assert.deepEqual(descriptions, ['', '',
    'The collector responds to the next 3 requests with status 503.',
    'The collector resets the connection of the next 1 request, after 500 ms.',
    'The collector leaves every request without a response.',
    'The collector delays the response to every request by 2.0 s.']);
});
