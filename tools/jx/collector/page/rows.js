// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { element } from './dom.js';
import { counted, preciseTime, shortId } from './format.js';

const cell = (name) => element('span', { class: name, role: 'gridcell' });

/** One row of the list; created once and reused while the list scrolls. */
export class RowView {
  constructor() {
    this.verdict = cell('verdict');
    this.time = cell('time');
    this.name = cell('name');
    this.line = cell('line');
    this.marks = cell('marks');
    this.session = cell('session');
    this.node = element('div', { class: 'row', role: 'row' },
      this.verdict, this.time, this.name, this.line, this.marks, this.session);
    this.row = null;
  }

  show(row, index, top) {
    this.node.style.transform = `translateY(${top}px)`;
    this.node.setAttribute('aria-rowindex', index + 1);
    if (this.row === row) return;
    this.row = row;
    this.node.id = `row-${row.id}`;
    this.node.dataset.id = row.id;
    this.node.classList.toggle('bad', !row.good);
    this.verdict.textContent = row.good ? '●' : '▲';
    this.verdict.setAttribute('aria-label', row.good ? 'valid' : 'invalid');
    this.time.textContent = preciseTime(row.received_ms);
    this.name.textContent = row.name ?? '(no name)';
    this.line.textContent = row.line ?? '';
    this.line.title = row.line ?? '';
    this.marks.replaceChildren(...marksOf(row));
    this.session.textContent = shortId(row.session);
    this.session.title = row.session ?? '';
  }

  point(isActive, isOpen) {
    this.node.classList.toggle('active', isActive);
    this.node.setAttribute('aria-selected', isOpen);
  }
}

function marksOf(row) {
  const marks = [];
  if (row.errors > 0) {
    marks.push(element('span', { class: 'mark error' }, counted(row.errors, 'error')));
  }
  if (row.notes > 0) {
    marks.push(element('span', { class: 'mark note' }, counted(row.notes, 'warning')));
  }
  if (row.repeats > 0) {
    marks.push(element('span', { class: 'mark', title: `repeated ${counted(row.repeats, 'time')}` },
      `×${row.repeats + 1}`));
  }
  return marks;
}
