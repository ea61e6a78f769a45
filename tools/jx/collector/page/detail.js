// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { findEvent } from './api.js';
import { changesView } from './changes.js';
import { button, element } from './dom.js';
import { counted, preciseTime, shortId } from './format.js';
import { readJson } from './json.js';
import { requestView } from './request.js';
import { JsonTree, ReasonMap, reasonNotes } from './tree.js';

const TABS = [['body', 'Body'], ['changes', 'Differences'], ['request', 'Request'], ['raw', 'Raw']];

/** The pane that shows one event whole. */
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
    } catch (fault) {
      if (this.id === id) this.showFault(fault);
    }
  }

  close() {
    this.id = null;
    this.pane.hidden = true;
    this.pane.replaceChildren();
  }

  showFault(fault) {
    const text = fault.status === 404
      ? 'This event is not here any more: the collector was reset, or newer events took its place.'
      : `The event cannot be shown: ${fault.message}`;
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
    const reasons = this.reasonList(event.reasons ?? []);
    this.pane.replaceChildren(this.head(event.name ?? '(no name)', event), this.facts(event),
      ...(reasons ? [reasons] : []),
      element('div', { class: 'tabs', role: 'tablist', 'aria-label': 'Parts of the event' },
        ...this.tabs), this.panels);
    this.pane.hidden = false;
    this.pane.scrollTop = 0;
    this.choose(this.tab);
  }

  head(name, event) {
    const verdict = event && element('span', { class: event.good ? 'badge good' : 'badge bad' },
      event.good ? '● good' : '▲ bad');
    return element('header', { class: 'detail-head' },
      element('h2', {}, name), verdict,
      button('Close', () => this.onClose(), { class: 'close', title: 'Escape' }));
  }

  facts(event) {
    const facts = [
      element('span', {}, event.class ?? 'no class of the library'),
      element('span', {}, `№ ${event.id}`),
      element('time', {}, preciseTime(event.received_ms)),
      event.repeats > 0 ? element('span', { class: 'mark' }, `×${event.repeats + 1}`) : null,
    ];
    const acts = [
      event.name && button('Only this name', () => this.onFilter('name', event.name)),
      event.session &&
        button(`Session ${shortId(event.session)}`, () => this.onSession(event.session)),
      event.video_session &&
        button(`Video session ${shortId(event.video_session)}`,
          () => this.onSession(event.video_session)),
    ];
    return element('div', {}, element('p', { class: 'facts' }, ...facts),
      element('p', { class: 'acts' }, ...acts.filter(Boolean)));
  }

  reasonList(reasons) {
    if (reasons.length === 0) return null;
    const list = element('ul', { class: 'reasons', 'aria-label': 'What is wrong or worth a look' },
      ...reasons.map((reason) => element('li', { class: reason.level },
        button(reason.key || '(the whole body)', () => this.reveal(reason.key), { class: 'path' }),
        ...reasonNotes([reason]))));
    if (reasons.some((reason) => reason.level === 'error')) return list;
    // Nothing is wrong: it is there for whoever wants to know.
    return element('details', { class: 'notes-only' },
      element('summary', {}, counted(reasons.length, 'note')), list);
  }

  /** Shows the place in the tree that a reason is about. */
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
    const reasons = this.event.reasons ?? [];
    let value;
    try {
      value = readJson(this.event.body);
    } catch (fault) {
      return element('div', {},
        element('p', { class: 'reason error' }, `No JSON: ${fault.message}` +
          (fault.offset === undefined ? '' : `, at character ${fault.offset + 1}`)),
        this.rawText());
    }
    const tree = new JsonTree(new ReasonMap(reasons));
    return element('div', {},
      element('p', { class: 'acts' }, button('Unfold all', () => tree.foldAll(true)),
        button('Fold all', () => tree.foldAll(false))),
      tree.build(value));
  }

  differenceView() {
    const { event } = this;
    if (!event.previous) {
      return element('p', { class: 'hint' },
        'No earlier event of this name is here to compare with.');
    }
    const view = element('div', {}, element('p', { class: 'hint' }, 'Comparing…'));
    findEvent(event.previous).then((previous) => {
      const link = button(`№ ${previous.id}`, () => this.onOpen(previous.id));
      view.replaceChildren(
        element('p', { class: 'hint' }, 'Compared with ', link,
          `, the event of this name before it (${preciseTime(previous.received_ms)})`),
        changesView(previous, event));
    }).catch((fault) => view.replaceChildren(element('p', { class: 'hint' },
      `The earlier event cannot be shown: ${fault.message}`)));
    return view;
  }

  rawText() {
    return element('pre', { class: 'raw', tabindex: 0, 'aria-label': 'Body as received' },
      this.event.body);
  }

  rawView() {
    const done = element('span', { role: 'status' });
    const copy = async () => {
      try {
        await navigator.clipboard.writeText(this.event.body);
        done.textContent = 'Copied';
      } catch {
        getSelection().selectAllChildren(this.pane.querySelector('.raw'));
        done.textContent = 'Selected: press Ctrl+C';
      }
    };
    const isLossy = this.event.body_base64 !== undefined;
    return element('div', {},
      element('p', { class: 'acts' }, button('Copy', copy, { id: 'copy' }), done),
      isLossy ? element('p', { class: 'reason error' },
        'The body is not UTF-8; the bytes that are none show as \ufffd.') : null,
      this.rawText());
  }
}
