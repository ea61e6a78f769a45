// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { chromium } from 'playwright-core';

const ARGUMENTS = ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync',
  // Greyscale antialiasing, so that screenshots are small and identical on every machine.
  '--disable-lcd-text'];

/** Launches Debian's Chromium without a window. */
export function launch() {
  return chromium.launch({
    executablePath: process.env.JX_CHROMIUM ?? '/usr/bin/chromium', args: ARGUMENTS,
  });
}

/**
 * Opens a page in a new context with a fixed time zone. Its console errors, such as blocked
 * scripts, are added to `complaints`.
 */
export async function openPage(browser, address,
  { width = 1280, height = 800, colorScheme = 'light', permissions = [] } = {}) {
  const scene = await browser.newContext({
    viewport: { width, height }, colorScheme, permissions, timezoneId: 'Europe/Berlin',
    reducedMotion: 'reduce', locale: 'en-GB',
  });
  const page = await scene.newPage();
  page.complaints = [];
  page.on('pageerror', (error) => page.complaints.push(String(error)));
  page.on('console', (message) => {
    if (message.type() === 'error') page.complaints.push(message.text());
  });
  await page.goto(address);
  await page.locator('#connection', { hasText: 'live' }).waitFor();
  return page;
}

export const rowsOf = (page) => page.locator('.space .row');

/** Returns the visible names, from the top. */
export async function namesIn(page) {
  const rows = await rowsOf(page).evaluateAll((nodes) => nodes.map((node) => ({
    name: node.querySelector('.name').textContent,
    top: node.getBoundingClientRect().top,
  })));
  return rows.sort((a, b) => a.top - b.top).map((row) => row.name);
}

/** Returns how many pixels the page is wider than its window. */
export function overflowOf(page) {
  return page.evaluate(() =>
    document.scrollingElement.scrollWidth - document.scrollingElement.clientWidth);
}
