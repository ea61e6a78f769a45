// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { button, element, oncePerFrame } from './dom.js';
import { counted } from './format.js';
import { RowView } from './rows.js';

const ROWS_BEYOND = 10;    // drawn above and below the visible rows
const ROWS_AHEAD = 400;    // rows left when the next older page is requested

/**
 * The live list. Only the visible rows are in the document, regardless of the size of the feed. The
 * list has the focus and points to its active row, which may be scrolled out of view.
 */
export class EventList {
  constructor(parent, feed, onOpen) {
    this.feed = feed;
    this.onOpen = onOpen;
    this.views = [];
    this.activeId = null;
    this.openId = null;
    this.unseen = 0;
    this.draw = oncePerFrame(() => this.drawNow());
    this.build(parent);
    new ResizeObserver(() => this.measure()).observe(this.scroller);
    this.measure();
  }

  build(parent) {
    this.space = element('div', { class: 'space', role: 'presentation' });
    this.scroller = element('div', {
      class: 'scroller', id: 'list', role: 'grid', tabindex: 0, 'aria-readonly': 'true',
      'aria-label': 'Events, newest first',
      on: {
        scroll: () => this.draw(),
        click: (event) => this.openUnder(event),
        keydown: (event) => this.steer(event),
      },
    }, this.space);
    this.newer = button('', () => this.toTop(), { class: 'newer', hidden: true });
    this.blank = element('div', { class: 'blank', hidden: true });
    this.head = element('div', { class: 'row head', 'aria-hidden': 'true' },
      ...[['verdict', ''], ['time', 'Received'], ['name', 'Name'], ['line', 'Summary'],
        ['marks', ''], ['session', 'Session']]
        .map(([name, text]) => element('span', { class: name }, text)));
    parent.replaceChildren(this.head, this.scroller, this.newer, this.blank);
  }

  /** Reads the row height from the style sheet; it differs on a narrow screen. */
  measure() {
    const height = getComputedStyle(this.scroller).getPropertyValue('--row-height');
    this.rowHeight = Number.parseFloat(height) || 28;
    this.head.style.marginRight = `${this.scroller.offsetWidth - this.scroller.clientWidth}px`;
    this.draw();
  }

  /** Called when the feed has changed. */
  update({ added, isNew }) {
    if (isNew) {
      this.unseen = 0;
      this.scroller.scrollTop = 0;
    } else if (added > 0 && this.scroller.scrollTop > this.rowHeight / 2) {
      // Keep the visible rows in place.
      this.unseen += added;
      this.shift = (this.shift ?? 0) + added;
    }
    this.draw();
  }

  drawNow() {
    const { feed, scroller, rowHeight } = this;
    this.space.style.height = `${feed.length * rowHeight}px`;
    if (this.shift) {
      scroller.scrollTop += this.shift * rowHeight;
      this.shift = 0;
    }
    if (scroller.scrollTop <= rowHeight / 2) this.unseen = 0;
    const first = Math.max(0, Math.floor(scroller.scrollTop / rowHeight) - ROWS_BEYOND);
    const count = Math.ceil(scroller.clientHeight / rowHeight) + 2 * ROWS_BEYOND;
    const end = Math.min(feed.length, first + count);
    this.drawRows(first, end);
    scroller.setAttribute('aria-rowcount', feed.hasAll ? feed.length : -1);
    this.newer.hidden = this.unseen === 0;
    this.newer.textContent = `↑ ${counted(this.unseen, 'new event')}`;
    if (end > feed.length - ROWS_AHEAD) feed.loadOlder();
  }

  drawRows(first, end) {
    while (this.views.length < end - first) {
      const view = new RowView();
      this.views.push(view);
      this.space.append(view.node);
    }
    while (this.views.length > end - first) this.views.pop().node.remove();
    for (let index = first; index < end; index += 1) {
      // Index modulo the number of views: a visible row keeps its element while the list scrolls.
      const view = this.views[index % this.views.length];
      const row = this.feed.at(index);
      view.show(row, index, index * this.rowHeight);
      view.point(row.id === this.activeId, row.id === this.openId);
    }
    if (this.activeId === null) this.scroller.removeAttribute('aria-activedescendant');
    else this.scroller.setAttribute('aria-activedescendant', `row-${this.activeId}`);
  }

  openUnder(event) {
    const node = event.target.closest('.row');
    if (!node) return;
    this.activeId = Number(node.dataset.id);
    this.onOpen(this.activeId);
    this.draw();
  }

  steer(event) {
    const page = Math.max(1, Math.floor(this.scroller.clientHeight / this.rowHeight) - 1);
    const steps = {
      ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page, Home: -Infinity, End: Infinity,
    };
    if (event.key === 'Enter' && this.activeId !== null) this.onOpen(this.activeId);
    else if (event.key in steps) this.move(steps[event.key]);
    else return;
    event.preventDefault();
  }

  /** Moves the active row by the given number of rows and scrolls it into view. */
  move(steps) {
    if (this.feed.length === 0) return;
    const from = this.feed.indexOf(this.activeId);
    const wanted = from < 0 ? 0 : from + steps;
    const index = Math.min(this.feed.length - 1, Math.max(0, wanted));
    this.activeId = this.feed.at(index).id;
    const top = index * this.rowHeight;
    const { scrollTop, clientHeight } = this.scroller;
    if (top < scrollTop) this.scroller.scrollTop = top;
    const bottom = top + this.rowHeight;
    if (bottom > scrollTop + clientHeight) this.scroller.scrollTop = bottom - clientHeight;
    this.draw();
  }

  /** Handles a key that was pressed while nothing had the focus. */
  focusAndSteer(event) {
    this.scroller.focus();
    this.steer(event);
  }

  /** Marks the row of the open event and scrolls to it when it is loaded but not visible. */
  markOpen(id) {
    this.openId = id;
    if (id !== null) {
      this.activeId = id;
      this.reveal(this.feed.indexOf(id));
    }
    this.draw();
  }

  reveal(index) {
    const { scrollTop, clientHeight } = this.scroller;
    const top = index * this.rowHeight;
    if (index < 0 || clientHeight === 0) return;
    if (top >= scrollTop && top + this.rowHeight <= scrollTop + clientHeight) return;
    this.space.style.height = `${this.feed.length * this.rowHeight}px`;
    this.scroller.scrollTop = top - clientHeight / 2;
  }

  toTop() {
    this.scroller.scrollTop = 0;
    this.unseen = 0;
    this.scroller.focus();
    this.draw();
  }

  /** Shows an empty state instead of the rows; null hides it. */
  showBlank(content) {
    this.blank.hidden = !content;
    this.blank.replaceChildren(...(content ? [content] : []));
  }
}
