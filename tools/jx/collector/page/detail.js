// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { findEvent } from './api.js';
import { changesView } from './changes.js';
import { button, element } from './dom.js';
import { counted, preciseTime, shortId } from './format.js';
import { readJson } from './json.js';
import { requestView } from './request.js';
import { diagnosticLabels, DiagnosticMap, JsonTree } from './tree.js';

const TABS = [['body', 'Body'], ['changes', 'Differences'], ['request', 'Request'], ['raw', 'Raw']];

/** The pane with all details of one event. */
export class EventDetail {
  constructor(pane, { onClose, onOpen, onFilter, onSession }) {
    Object.assign(this, { pane, onClose, onOpen, onFilter, onSession });
    this.tab = 'body';
    this.id = null;
  }

  async open(id) {
    if (this.id === id) return;
    this.id = id;
    try {
      const event = await findEvent(id);
      if (this.id === id) this.show(event);
    } catch (error) {
      if (this.id === id) this.showError(error);
    }
  }

  close() {
    this.id = null;
    this.pane.hidden = true;
    this.pane.replaceChildren();
  }

  showError(error) {
    const text = error.status === 404
      ? 'This event is no longer available: the collector was reset, or the event was evicted to ' +
        'make room.'
      : `Could not load the event: ${error.message}`;
    this.pane.replaceChildren(this.head('Event', null), element('p', { class: 'blank' }, text));
    this.pane.hidden = false;
  }

  show(event) {
    this.event = event;
    this.panels = element('div', { class: 'panel', id: 'panel', role: 'tabpanel', tabindex: 0 });
    this.tabs = TABS.map(([key, text]) => button(text, () => this.choose(key), {
      role: 'tab', id: `tab-${key}`, 'aria-controls': 'panel',
      on: { click: () => this.choose(key), keydown: (pressed) => this.steer(pressed) },
    }));
    const diagnostics = this.diagnosticList(event.reasons ?? []);
    this.pane.replaceChildren(this.head(event.name ?? '(no name)', event), this.facts(event),
      ...(diagnostics ? [diagnostics] : []),
      element('div', { class: 'tabs', role: 'tablist', 'aria-label': 'Event views' },
        ...this.tabs), this.panels);
    this.pane.hidden = false;
    this.pane.scrollTop = 0;
    this.choose(this.tab);
  }

  head(name, event) {
    const badge = event && element('span', { class: event.good ? 'badge good' : 'badge bad' },
      event.good ? '● valid' : '▲ invalid');
    return element('header', { class: 'detail-head' },
      element('h2', {}, name), badge,
      button('Close', () => this.onClose(), { class: 'close', title: 'Close (Escape)' }));
  }

  facts(event) {
    const facts = [
      element('span', {}, event.class ?? 'unknown event class'),
      element('span', {}, `№ ${event.id}`),
      element('time', {}, preciseTime(event.received_ms)),
      event.repeats > 0 ? element('span', { class: 'mark' }, `×${event.repeats + 1}`) : null,
    ];
    const acts = [
      event.name && button('Filter by name', () => this.onFilter('name', event.name)),
      event.session &&
        button(`Session ${shortId(event.session)}`, () => this.onSession(event.session)),
      event.video_session &&
        button(`Video session ${shortId(event.video_session)}`,
          () => this.onSession(event.video_session)),
    ];
    return element('div', {}, element('p', { class: 'facts' }, ...facts),
      element('p', { class: 'acts' }, ...acts.filter(Boolean)));
  }

  diagnosticList(diagnostics) {
    if (diagnostics.length === 0) return null;
    const list = element('ul', { class: 'reasons', 'aria-label': 'Errors and warnings' },
      ...diagnostics.map((one) => element('li', { class: one.level },
        button(one.key || '(entire body)', () => this.reveal(one.key), { class: 'path' }),
        ...diagnosticLabels([one]))));
    if (diagnostics.some((one) => one.level === 'error')) return list;
    // The event is valid, so the warnings are collapsed.
    return element('details', { class: 'notes-only' },
      element('summary', {}, counted(diagnostics.length, 'warning')), list);
  }

  /** Scrolls to the key of a diagnostic in the tree. */
  reveal(path) {
    this.choose('body');
    const place = [...this.panels.querySelectorAll('[data-path]')]
      .find((node) => node.dataset.path === path);
    if (!place) return;
    for (let node = place.parentElement; node; node = node.parentElement) {
      if (node.tagName === 'DETAILS') node.open = true;
    }
    place.scrollIntoView({ block: 'center' });
    place.classList.add('found');
    setTimeout(() => place.classList.remove('found'), 1500);
  }

  steer(pressed) {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[pressed.key];
    if (!step) return;
    const at = TABS.findIndex(([key]) => key === this.tab);
    this.choose(TABS[(at + step + TABS.length) % TABS.length][0]);
    this.tabs.find((tab) => tab.getAttribute('aria-selected') === 'true').focus();
    pressed.preventDefault();
  }

  choose(key) {
    this.tab = key;
    for (const tab of this.tabs) {
      const isChosen = tab.id === `tab-${key}`;
      tab.setAttribute('aria-selected', isChosen);
      tab.tabIndex = isChosen ? 0 : -1;
    }
    this.panels.setAttribute('aria-labelledby', `tab-${key}`);
    const views = {
      body: () => this.bodyView(), changes: () => this.differenceView(),
      request: () => requestView(this.event), raw: () => this.rawView(),
    };
    this.panels.replaceChildren(views[key]());
  }

  bodyView() {
    const diagnostics = this.event.reasons ?? [];
    let value;
    try {
      value = readJson(this.event.body);
    } catch (error) {
      return element('div', {},
        element('p', { class: 'reason error' }, `Invalid JSON: ${error.message}` +
          (error.offset === undefined ? '' : `, at character ${error.offset + 1}`)),
        this.rawText());
    }
    const tree = new JsonTree(new DiagnosticMap(diagnostics));
    return element('div', {},
      element('p', { class: 'acts' }, button('Expand all', () => tree.toggleAll(true)),
        button('Collapse all', () => tree.toggleAll(false))),
      tree.build(value));
  }

  differenceView() {
    const { event } = this;
    if (!event.previous) {
      return element('p', { class: 'hint' },
        'No previous event with this name is available.');
    }
    const view = element('div', {}, element('p', { class: 'hint' }, 'Comparing…'));
    findEvent(event.previous).then((previous) => {
      const link = button(`№ ${previous.id}`, () => this.onOpen(previous.id));
      view.replaceChildren(
        element('p', { class: 'hint' }, 'Compared with ', link,
          `, the previous event with this name (${preciseTime(previous.received_ms)})`),
        changesView(previous, event));
    }).catch((error) => view.replaceChildren(element('p', { class: 'hint' },
      `Could not load the previous event: ${error.message}`)));
    return view;
  }

  rawText() {
    return element('pre', { class: 'raw', tabindex: 0, 'aria-label': 'Body as received' },
      this.event.body);
  }

  rawView() {
    const status = element('span', { role: 'status' });
    const copy = async () => {
      try {
        await navigator.clipboard.writeText(this.event.body);
        status.textContent = 'Copied';
      } catch {
        getSelection().selectAllChildren(this.pane.querySelector('.raw'));
        status.textContent = 'Selected; press Ctrl+C to copy';
      }
    };
    const isLossy = this.event.body_base64 !== undefined;
    return element('div', {},
      element('p', { class: 'acts' }, button('Copy', copy, { id: 'copy' }), status),
      isLossy ? element('p', { class: 'reason error' },
        'The body is not valid UTF-8; invalid bytes are shown as \ufffd.') : null,
      this.rawText());
  }
}
